// halcyra-quote-service: a local HTTP quote service speaking the protocol Halcyra downloads
// quotes with, for tests on loopback and for demonstrations without a network.

#include "quoteserver.h"
#include "quotestore.h"

#include <QDate>
#include <QStringList>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <pthread.h>
#include <thread>

namespace {

const char kUsage[] =
    "usage: halcyra-quote-service [--port N] [--host ADDR] [--data DIR] [--limit N]\n"
    "                             [--fault SYMBOL=KIND]...\n"
    "  --port N       port to listen on (default 8700; 0 picks a free one)\n"
    "  --host ADDR    address to listen on (default 127.0.0.1)\n"
    "  --data DIR     serve DIR/SYMBOL.csv and DIR/metadata.csv instead of the samples\n"
    "  --limit N      answer only N requests of the /q/d/l/ form, then refuse\n"
    "  --fault SYMBOL=KIND  misbehave for SYMBOL: status:CODE, html, empty, nodate,\n"
    "                 stall:MS, body:TEXT or redirect\n";

int usageError(const QString &message)
{
    std::fprintf(stderr, "halcyra-quote-service: %s\n%s", qUtf8Printable(message), kUsage);
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);

    QString host = QStringLiteral("127.0.0.1");
    QString dataDir;
    int port = 8700;
    QuoteService::ServerOptions options;
    for (int i = 0; i < args.size(); ++i) {
        const QString &option = args.at(i);
        if (option == QLatin1String("--help") || option == QLatin1String("-h")) {
            std::fputs(kUsage, stdout);
            return 0;
        }
        if (i + 1 >= args.size())
            return usageError(QStringLiteral("unknown option or missing value: ") + option);
        const QString value = args.at(++i);
        bool ok = true;
        if (option == QLatin1String("--port")) {
            port = value.toInt(&ok);
            ok = ok && port >= 0 && port <= 65535;
        } else if (option == QLatin1String("--host")) {
            host = value;
        } else if (option == QLatin1String("--data")) {
            dataDir = value;
        } else if (option == QLatin1String("--limit")) {
            options.dailyLimit = value.toInt(&ok);
            ok = ok && options.dailyLimit >= 0;
        } else if (option == QLatin1String("--fault")) {
            QString symbol, error;
            QuoteService::Fault fault;
            if (!QuoteService::parseFault(value, &symbol, &fault, &error))
                return usageError(error);
            options.faults.insert(symbol, fault);
        } else {
            return usageError(QStringLiteral("unknown option: ") + option);
        }
        if (!ok)
            return usageError(QStringLiteral("bad value for %1: %2").arg(option, value));
    }

    QuoteService::QuoteStore store;
    QString error;
    const bool loaded = dataDir.isEmpty()
                            ? store.loadSamples(QDate::currentDate().addDays(-1), &error)
                            : store.loadFolder(dataDir, &error);
    if (!loaded) {
        std::fprintf(stderr, "halcyra-quote-service: %s\n", qUtf8Printable(error));
        return 1;
    }

    // SIGINT and SIGTERM are taken by one thread that waits for them, so that stopping runs
    // as ordinary code rather than in a signal handler. Blocked here, before any other thread
    // exists, they stay blocked in every thread the server starts.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

    QuoteService::QuoteServer server(store, std::move(options));
    const int boundPort = server.bind(host, port);
    if (boundPort < 0) {
        std::fprintf(stderr, "halcyra-quote-service: cannot listen on %s port %d\n",
                     qUtf8Printable(host), port);
        return 1;
    }
    const QString shownHost =
        host.contains(QLatin1Char(':')) ? QLatin1Char('[') + host + QLatin1Char(']') : host;
    std::printf("Listening on http://%s:%d\n", qUtf8Printable(shownHost), boundPort);
    std::fflush(stdout);

    std::atomic<bool> signalled{false};
    std::thread signalWaiter([&] {
        int signal = 0;
        sigwait(&stopSignals, &signal);
        signalled = true;
        server.stop();
    });
    const bool ok = server.run();
    // When the server ended on its own, the waiter still waits for a signal.
    if (!signalled)
        pthread_kill(signalWaiter.native_handle(), SIGTERM);
    signalWaiter.join();
    if (!ok) {
        std::fprintf(stderr, "halcyra-quote-service: the server stopped with an error\n");
        return 1;
    }
    return 0;
}
