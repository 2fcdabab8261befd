#pragma once

#include "replies.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <httplib.h>
#include <mutex>

namespace QuoteService {

class QuoteStore;

// How every request naming one symbol misbehaves, so that a client's error handling can be
// tried against a real server.
struct Fault
{
    enum class Kind {
        Status,   // that HTTP status with a short HTML page
        Html,     // 200 with an HTML error page
        Empty,    // 200 with an empty body
        NoDate,   // 200 with only the stored header line
        Stall,    // wait, then answer normally
        Body,     // 200 with a given body
        Redirect, // 302 to the same request with "&redirected=1", which is answered normally
    };
    Kind kind = Kind::Empty;
    int value = 0;   // the status of Status, the milliseconds of Stall
    QByteArray text; // the body of Body
};

// Reads "SYMBOL=KIND", KIND being status:CODE, html, empty, nodate, stall:MS, body:TEXT or
// redirect. Returns false, with *error saying why, for anything else. The symbol comes back
// in upper case, the store's spelling.
bool parseFault(const QString &argument, QString *symbol, Fault *fault, QString *error);

struct ServerOptions
{
    QHash<QString, Fault> faults; // by upper-case symbol
    int dailyLimit = -1;          // requests of the second provider's form served; -1: all
};

// The HTTP side of the service: routes requests to the replies, applies the faults and writes
// one line per request to stdout ("GET /target 200 123": method, target, status, body bytes).
// Requests are served by a pool of threads, so a stalled one holds up no other.
class QuoteServer
{
public:
    // The store must outlive the server.
    QuoteServer(const QuoteStore &store, ServerOptions options);

    // Binds to host:port, any free port for 0. Returns the port, or -1 when it cannot bind.
    int bind(const QString &host, int port);
    // Serves until stop(), including a stop() that came before. Returns false when the server
    // failed while running.
    bool run();
    // Makes run() return once the requests in progress are answered; stalled requests stop
    // waiting. Safe from any thread, and blocks until run() has returned (or never starts).
    void stop();

private:
    void serve(Endpoint endpoint, const httplib::Request &request, httplib::Response &response);
    // Answers the request as the fault says; false when the request is to be served after all
    // (a stall has passed, or a redirection was followed).
    bool misbehave(const Fault &fault, const httplib::Request &request, const Params &params,
                   httplib::Response &response);
    void log(const httplib::Request &request, const httplib::Response &response);

    const QuoteStore &mStore;
    const ServerOptions mOptions;
    httplib::Server mServer;
    std::atomic<int> mDailyCount{0};
    std::mutex mLogMutex;

    std::mutex mStateMutex;
    std::condition_variable mStateChanged;
    bool mStopping = false;
    bool mFinished = false;
};

} // namespace QuoteService
