#include "browser/symbolgenerator.h"
#include "command.h"

#include <QCommandLineParser>

namespace Cli {

int runCandidates(const QStringList &args, Context &context)
{
    using OrdaneBrowser::SymbolGenerator;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption alphabetOption(QStringLiteral("alphabet"), QString(),
                                            QStringLiteral("A"),
                                            SymbolGenerator::defaultAlphabet());
    const QCommandLineOption lengthOption(QStringLiteral("length"), QString(), QStringLiteral("L"),
                                          QString::number(SymbolGenerator::kDefaultLength));
    const QCommandLineOption startOption(QStringLiteral("start"), QString(), QStringLiteral("I"),
                                         QStringLiteral("0"));
    const QCommandLineOption countOption(QStringLiteral("count"), QString(), QStringLiteral("N"),
                                         QStringLiteral("100"));
    const QCommandLineOption prefixOption(QStringLiteral("prefix"), QString(), QStringLiteral("P"));
    const QCommandLineOption postfixOption(QStringLiteral("postfix"), QString(),
                                           QStringLiteral("S"), QStringLiteral(".de"));
    const QCommandLineOption fillOption(QStringLiteral("fill"), QString(), QStringLiteral("C"));
    parser.addOptions({alphabetOption, lengthOption, startOption, countOption, prefixOption,
                       postfixOption, fillOption});
    if (!parser.parse(QStringList{QStringLiteral("candidates")} + args)) {
        context.err << "halcyra-cli candidates: " << parser.errorText() << '\n';
        return UsageError;
    }
    if (!parser.positionalArguments().isEmpty()) {
        context.err << "halcyra-cli candidates: unexpected argument "
                    << parser.positionalArguments().constFirst() << '\n';
        return UsageError;
    }
    bool lengthOk = false, startOk = false, countOk = false;
    // The scanner's "Padding:" takes 1 to 20; the same bounds keep the powers meaningful.
    const int length = parser.value(lengthOption).toInt(&lengthOk);
    const quint64 start = parser.value(startOption).toULongLong(&startOk);
    const quint64 count = parser.value(countOption).toULongLong(&countOk);
    if (!lengthOk || length < 1 || length > 20) {
        context.err << "halcyra-cli candidates: --length needs a whole number from 1 to 20\n";
        return UsageError;
    }
    if (!startOk || !countOk) {
        context.err << "halcyra-cli candidates: --start and --count need whole numbers of at "
                       "least 0\n";
        return UsageError;
    }

    SymbolGenerator generator;
    generator.setAlphabet(parser.value(alphabetOption));
    generator.setLength(length);
    generator.setIndex(start);
    const QString prefix = parser.value(prefixOption);
    const QString postfix = parser.value(postfixOption);
    const QString fill = parser.value(fillOption);
    for (quint64 i = 0; i < count && !generator.atEnd(); ++i)
        context.out << OrdaneBrowser::probeSymbol(generator.next(), prefix, postfix, fill, length)
                    << '\n';
    return Success;
}

} // namespace Cli
