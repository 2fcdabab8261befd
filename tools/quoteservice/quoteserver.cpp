#include "quoteserver.h"

#include "data/quotefile.h"
#include "quotestore.h"

#include <chrono>
#include <cstdio>
#include <sys/socket.h>

namespace QuoteService {

namespace {

Params paramsOf(const httplib::Request &request)
{
    Params params;
    // Keys repeat in order of appearance; the first value counts.
    for (const auto &[key, value] : request.params) {
        const QString name = QString::fromStdString(key);
        if (!params.contains(name))
            params.insert(name, QString::fromStdString(value));
    }
    return params;
}

void setBody(httplib::Response &response, int status, const QByteArray &body,
             const char *contentType)
{
    response.status = status;
    response.set_content(body.constData(), size_t(body.size()), contentType);
}

} // namespace

bool parseFault(const QString &argument, QString *symbol, Fault *fault, QString *error)
{
    const int equals = argument.indexOf(QLatin1Char('='));
    if (equals <= 0) {
        *error = QStringLiteral("--fault takes SYMBOL=KIND, not \"%1\"").arg(argument);
        return false;
    }
    *symbol = argument.left(equals).toUpper();
    const QString kind = argument.mid(equals + 1);
    const QString name = kind.section(QLatin1Char(':'), 0, 0);
    const QString value = kind.section(QLatin1Char(':'), 1);
    bool ok = true;
    *fault = Fault();
    if (name == QLatin1String("status")) {
        fault->kind = Fault::Kind::Status;
        fault->value = value.toInt(&ok);
        ok = ok && fault->value >= 100 && fault->value <= 599;
    } else if (name == QLatin1String("stall")) {
        fault->kind = Fault::Kind::Stall;
        fault->value = value.toInt(&ok);
        ok = ok && fault->value >= 0;
    } else if (name == QLatin1String("body")) {
        fault->kind = Fault::Kind::Body;
        fault->text = value.toUtf8();
    } else if (kind == QLatin1String("html")) {
        fault->kind = Fault::Kind::Html;
    } else if (kind == QLatin1String("empty")) {
        fault->kind = Fault::Kind::Empty;
    } else if (kind == QLatin1String("nodate")) {
        fault->kind = Fault::Kind::NoDate;
    } else if (kind == QLatin1String("redirect")) {
        fault->kind = Fault::Kind::Redirect;
    } else {
        ok = false;
    }
    if (!ok)
        *error = QStringLiteral("unknown fault \"%1\" (status:CODE, html, empty, nodate, "
                                "stall:MS, body:TEXT or redirect)")
                     .arg(kind);
    return ok;
}

QuoteServer::QuoteServer(const QuoteStore &store, ServerOptions options)
    : mStore(store)
    , mOptions(std::move(options))
{
    // The library's default also sets SO_REUSEPORT, which would let a second service bind a
    // port already taken and receive half of its connections.
    mServer.set_socket_options([](socket_t sock) {
        int yes = 1;
        setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    // One request per connection. An idle kept-alive connection holds its thread for seconds
    // and the library waits for every thread when it stops, so with keep-alive a client that
    // leaves its connection open would delay every stop; on loopback a new connection costs
    // next to nothing.
    mServer.set_keep_alive_max_count(1);
    // Stalls hold a thread each: more threads than the default keep a few parallel clients
    // from waiting on one another.
    mServer.new_task_queue = [] {
        return new httplib::ThreadPool(16);
    };
    mServer.set_logger([this](const httplib::Request &request, const httplib::Response &response) {
        log(request, response);
    });
    auto route = [this](Endpoint endpoint) {
        return [this, endpoint](const httplib::Request &request, httplib::Response &response) {
            serve(endpoint, request, response);
        };
    };
    mServer.Get("/table.csv", route(Endpoint::Table));
    mServer.Get("/d/quotes.csv", route(Endpoint::Fields));
    mServer.Get("/q/d/l/?", route(Endpoint::Daily));
    mServer.Get(".*", [](const httplib::Request &, httplib::Response &response) {
        setBody(response, 404, "Not found\n", "text/plain");
    });
}

int QuoteServer::bind(const QString &host, int port)
{
    const std::string address = host.toStdString();
    if (port == 0)
        return mServer.bind_to_any_port(address);
    return mServer.bind_to_port(address, port) ? port : -1;
}

bool QuoteServer::run()
{
    {
        std::lock_guard<std::mutex> lock(mStateMutex);
        if (mStopping) {
            mFinished = true;
            mStateChanged.notify_all();
            return true;
        }
    }
    const bool ok = mServer.listen_after_bind();
    std::lock_guard<std::mutex> lock(mStateMutex);
    mFinished = true;
    mStateChanged.notify_all();
    return ok;
}

void QuoteServer::stop()
{
    std::unique_lock<std::mutex> lock(mStateMutex);
    mStopping = true;
    mStateChanged.notify_all();
    // The library's stop() does nothing until its accept loop has begun, so it is repeated
    // until run() has returned.
    while (!mFinished) {
        mServer.stop();
        mStateChanged.wait_for(lock, std::chrono::milliseconds(20));
    }
}

void QuoteServer::serve(Endpoint endpoint, const httplib::Request &request,
                        httplib::Response &response)
{
    const Params params = paramsOf(request);
    const auto fault = mOptions.faults.constFind(requestedSymbol(endpoint, params));
    if (fault != mOptions.faults.constEnd() && misbehave(*fault, request, params, response))
        return;

    Reply reply;
    switch (endpoint) {
    case Endpoint::Table:
        reply = tableReply(mStore, params);
        break;
    case Endpoint::Fields:
        reply = fieldsReply(mStore, params);
        break;
    case Endpoint::Daily:
        if (mOptions.dailyLimit >= 0 && mDailyCount.fetch_add(1) >= mOptions.dailyLimit)
            reply = {200, "Exceeded the daily hits limit"};
        else
            reply = dailyReply(mStore, params);
        break;
    }
    setBody(response, reply.status, reply.body, reply.contentType);
}

bool QuoteServer::misbehave(const Fault &fault, const httplib::Request &request,
                            const Params &params, httplib::Response &response)
{
    switch (fault.kind) {
    case Fault::Kind::Status: {
        const QByteArray page = "<html><head><title>Error " + QByteArray::number(fault.value) +
                                "</title></head><body><h1>Error " +
                                QByteArray::number(fault.value) + "</h1></body></html>\n";
        setBody(response, fault.value, page, "text/html");
        return true;
    }
    case Fault::Kind::Html:
        setBody(response, 200,
                "<!DOCTYPE html>\n<html><head><title>Service unavailable</title></head>"
                "<body><h1>Sorry, the service is unavailable</h1>"
                "<p>Please try again later.</p></body></html>\n",
                "text/html");
        return true;
    case Fault::Kind::Empty:
        setBody(response, 200, QByteArray(), "text/csv");
        return true;
    case Fault::Kind::NoDate:
        setBody(response, 200, OrdaneData::kQuoteFileHeader, "text/csv");
        return true;
    case Fault::Kind::Body:
        setBody(response, 200, fault.text, "text/csv");
        return true;
    case Fault::Kind::Stall: {
        std::unique_lock<std::mutex> lock(mStateMutex);
        mStateChanged.wait_for(lock, std::chrono::milliseconds(fault.value),
                               [this] { return mStopping; });
        return false;
    }
    case Fault::Kind::Redirect: {
        if (params.value(QStringLiteral("redirected")) == QLatin1String("1"))
            return false;
        std::string host = request.get_header_value("Host");
        if (host.empty()) // an HTTP/1.0 client: the address it reached
            host = (request.local_addr.find(':') == std::string::npos
                        ? request.local_addr
                        : "[" + request.local_addr + "]") +
                   ":" + std::to_string(request.local_port);
        const char *separator = request.target.find('?') == std::string::npos ? "?" : "&";
        response.status = 302;
        response.set_header("Location",
                            "http://" + host + request.target + separator + "redirected=1");
        response.set_content("Moved\n", "text/plain");
        return true;
    }
    }
    return false;
}

void QuoteServer::log(const httplib::Request &request, const httplib::Response &response)
{
    std::lock_guard<std::mutex> lock(mLogMutex);
    std::printf("%s %s %d %zu\n", request.method.c_str(), request.target.c_str(), response.status,
                response.body.size());
    std::fflush(stdout);
}

} // namespace QuoteService
