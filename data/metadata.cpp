#include "metadata.h"

#include "quotefile.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMutexLocker>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

namespace OrdaneData {

namespace {

const int kColumnCount = 22;
const int kReplyValueCount = 20;

// Kept character for character, blanks and all: SQLite keeps the text of a CREATE statement
// in the file itself, where it is read back.
const char kCreateMetadata[] =
    "CREATE TABLE metadata ( symbol         VARCHAR(16) PRIMARY KEY NOT NULL, "
    "name           VARCHAR(32), exchange       VARCHAR(16), epsecy         VARCHAR(16), "
    "epseny         VARCHAR(16), epsexq         VARCHAR(16), marktkap       VARCHAR(16), "
    "ebitda         VARCHAR(16), pe             VARCHAR(16), peg            VARCHAR(16), "
    "dy             VARCHAR(16), bookvalue      VARCHAR(16), dividendsshare VARCHAR(16), "
    "earningshare   VARCHAR(16), pricesales     VARCHAR(16), pricebook      VARCHAR(16), "
    "exdividenddate VARCHAR(16), dividenpaydate VARCHAR(16), pepsecy        VARCHAR(16), "
    "shortratio     VARCHAR(16), currency       VARCHAR(16), lastupdate     VARCHAR(16))";
const char kCreateVersion[] = "CREATE TABLE version ( id INTEGER );\n";
const char kInsertVersion[] = "INSERT INTO  version (id) VALUES(0);";

// Every value of every statement below is a bound parameter, never text pasted into the
// statement: a name such as "Moody's" is stored as it is, and a reply from the network
// cannot change the statement it ends up in.
const char kInsert[] =
    "INSERT INTO  metadata (symbol, name, exchange, epsecy, epseny, epsexq, marktkap, ebitda, "
    "pe, peg, dy, bookvalue, dividendsshare, earningshare, pricesales, pricebook, "
    "exdividenddate, dividenpaydate, pepsecy, shortratio, currency, lastupdate) "
    "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?);";
const char kUpdate[] =
    "UPDATE metadata SET name = ?, exchange = ?, epsecy = ?, epseny = ?, epsexq = ?, "
    "marktkap = ?, ebitda = ?, pe = ?, peg = ?,dy = ?, bookvalue = ?, dividendsshare = ?, "
    "earningshare = ?, pricesales = ?, pricebook = ?, exdividenddate = ?, dividenpaydate = ?, "
    "pepsecy = ?, shortratio = ?, currency = ?, lastupdate = ? WHERE symbol = ?;";

// A null string would be bound as SQL NULL; every column holds text, if empty.
QVariant text(const QString &value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

// Prepares `statement`, binds `values` in order and runs it. False, with nothing run, when
// the statement does not prepare.
bool run(QSqlQuery &query, const QString &statement, const QStringList &values)
{
    if (!query.prepare(statement))
        return false;
    for (const QString &value : values)
        query.addBindValue(text(value));
    return query.exec();
}

// Runs a SELECT; false, with the driver's words on the debug log, when it fails.
bool select(QSqlQuery &query, const QString &statement, const QStringList &values = {})
{
    if (run(query, statement, values))
        return true;
    qDebug().noquote() << "MetaData Error:" << query.lastError().text();
    return false;
}

// One CSV line into its fields. A field in double quotes may hold commas, and a doubled
// quote inside it stands for one; the quotes themselves are dropped.
QStringList splitReply(QString line)
{
    while (line.endsWith(QLatin1Char('\n')) || line.endsWith(QLatin1Char('\r')))
        line.chop(1);
    QStringList fields;
    QString field = QStringLiteral("");
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (quoted) {
            if (c != QLatin1Char('"'))
                field += c;
            else if (i + 1 < line.size() && line.at(i + 1) == QLatin1Char('"'))
                field += line.at(++i);
            else
                quoted = false;
        } else if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == QLatin1Char(',')) {
            fields << field;
            field = QStringLiteral("");
        } else {
            field += c;
        }
    }
    fields << field;
    return fields;
}

// The service names some markets only by the symbol's suffix.
QString exchangeOfSuffix(const QString &symbol)
{
    static const struct
    {
        const char *suffix;
        const char *exchange;
    } kSuffixes[] = {
        {".bc", "Barcelona"},
        {".ma", "Madrid"},
        {".ob", "OTC BBM"},
        {".pk", "Pink Sheets"},
    };
    const QString lower = symbol.toLower();
    for (const auto &s : kSuffixes)
        if (lower.endsWith(QLatin1String(s.suffix)))
            return QLatin1String(s.exchange);
    return QString();
}

} // namespace

MetaData::MetaData(QObject *parent)
    : MetaData(storagePath() + QStringLiteral("/_meta.tdb"), parent)
{}

MetaData::MetaData(const QString &path, QObject *parent)
    : QObject(parent)
    , mPath(path)
{}

MetaData::~MetaData()
{
    QMutexLocker lock(&mMutex);
    for (const QString &name : qAsConst(mConnections))
        QSqlDatabase::removeDatabase(name);
    mConnections.clear();
}

QString MetaData::fieldCodes()
{
    return QStringLiteral("nxe7e8e9j1j4rr5yb4dep5p6qr1r6s7c4");
}

QStringList MetaData::columns()
{
    static const QStringList names = {
        QStringLiteral("symbol"),
        QStringLiteral("name"),
        QStringLiteral("exchange"),
        QStringLiteral("epsecy"),
        QStringLiteral("epseny"),
        QStringLiteral("epsexq"),
        QStringLiteral("marktkap"),
        QStringLiteral("ebitda"),
        QStringLiteral("pe"),
        QStringLiteral("peg"),
        QStringLiteral("dy"),
        QStringLiteral("bookvalue"),
        QStringLiteral("dividendsshare"),
        QStringLiteral("earningshare"),
        QStringLiteral("pricesales"),
        QStringLiteral("pricebook"),
        QStringLiteral("exdividenddate"),
        QStringLiteral("dividenpaydate"),
        QStringLiteral("pepsecy"),
        QStringLiteral("shortratio"),
        QStringLiteral("currency"),
        QStringLiteral("lastupdate"),
    };
    return names;
}

bool MetaData::open()
{
    return connection().isValid();
}

QSqlDatabase MetaData::connection()
{
    QThread *thread = QThread::currentThread();
    QMutexLocker lock(&mMutex);
    const auto known = mConnections.constFind(thread);
    if (known != mConnections.constEnd())
        return QSqlDatabase::database(*known);

    const QFileInfo file(mPath);
    if (!QDir().mkpath(file.absolutePath())) {
        qDebug().noquote() << "Cannot open database:"
                           << "cannot create the folder" << file.absolutePath();
        return QSqlDatabase();
    }
    // Decided before opening, which makes the file. An empty file is one whose making
    // failed before any table was written.
    const bool fresh = !file.exists() || file.size() == 0;
    const QString name = QStringLiteral("halcyra-meta %1 thread %2 store %3")
                             .arg(mPath)
                             .arg(quintptr(thread), 0, 16)
                             .arg(quintptr(this), 0, 16);
    bool ready = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        // The SQLite driver ignores these; they are kept for drivers that do not.
        db.setHostName(QStringLiteral("localhost"));
        db.setUserName(QStringLiteral("halcyrauser"));
        db.setPassword(QStringLiteral("halcyra"));
        db.setDatabaseName(mPath);
        if (!db.open())
            qDebug().noquote() << "Cannot open database:" << db.lastError().text();
        else
            ready = !fresh || createTables(db);
    }
    if (!ready) {
        QSqlDatabase::removeDatabase(name);
        return QSqlDatabase();
    }
    mConnections.insert(thread, name);
    // Runs in the finishing thread, which owns the connection. The main thread never
    // finishes while the store lives; its connection closes with the store.
    connect(
        thread, &QThread::finished, this, [this, thread] { closeConnectionOf(thread); },
        Qt::DirectConnection);
    return QSqlDatabase::database(name);
}

void MetaData::closeConnectionOf(QThread *thread)
{
    QMutexLocker lock(&mMutex);
    const QString name = mConnections.take(thread);
    if (!name.isEmpty())
        QSqlDatabase::removeDatabase(name);
}

bool MetaData::createTables(QSqlDatabase &db)
{
    QSqlQuery query(db);
    if (!query.exec(QLatin1String(kCreateMetadata))) {
        qDebug() << "MetaData Error:"
                 << "Unable to create the table 'metadata'";
        return false;
    }
    if (!query.exec(QLatin1String(kCreateVersion)) || !query.exec(QLatin1String(kInsertVersion))) {
        qDebug() << "MetaData Error:"
                 << "Unable to create the table 'version'";
        return false;
    }
    return true;
}

QStringList MetaData::symbols()
{
    QStringList result;
    QSqlDatabase db = connection();
    if (!db.isValid())
        return result;
    QSqlQuery query(db);
    if (select(query, QStringLiteral("SELECT symbol FROM metadata")))
        while (query.next())
            result << query.value(0).toString();
    return result;
}

QMap<QString, QString> MetaData::record(const QString &symbol)
{
    QMap<QString, QString> result;
    QSqlDatabase db = connection();
    if (!db.isValid())
        return result;
    const QStringList names = columns();
    QSqlQuery query(db);
    const QString statement = QStringLiteral("SELECT %1 FROM metadata WHERE symbol = ?")
                                  .arg(names.join(QStringLiteral(", ")));
    if (select(query, statement, {symbol.toUpper()}) && query.next())
        for (int i = 0; i < names.size(); ++i)
            result.insert(names.at(i), query.value(i).toString());
    return result;
}

QStringList MetaData::symbolsOfExchanges(const QStringList &codes)
{
    QStringList result;
    if (codes.isEmpty())
        return result;
    QSqlDatabase db = connection();
    if (!db.isValid())
        return result;
    QStringList marks;
    marks.reserve(codes.size());
    for (int i = 0; i < codes.size(); ++i)
        marks << QStringLiteral("?");
    QSqlQuery query(db);
    const QString statement = QStringLiteral("SELECT symbol FROM metadata WHERE exchange IN (%1)")
                                  .arg(marks.join(QStringLiteral(", ")));
    if (select(query, statement, codes))
        while (query.next())
            result << query.value(0).toString();
    return result;
}

bool MetaData::insert(const QStringList &values)
{
    return write(QLatin1String(kInsert), values);
}

bool MetaData::update(const QStringList &values)
{
    return write(QLatin1String(kUpdate), values);
}

bool MetaData::write(const QString &statement, const QStringList &values)
{
    if (values.size() != kColumnCount) {
        qDebug() << "Error while metadata update" << values.size() << "values instead of"
                 << kColumnCount;
        return false;
    }
    QSqlDatabase db = connection();
    if (!db.isValid())
        return false;
    QSqlQuery query(db);
    if (run(query, statement, values))
        return true;
    qDebug().noquote() << "Error while metadata update" << query.lastError().text();
    return false;
}

bool MetaData::contains(QSqlDatabase &db, const QString &symbol)
{
    QSqlQuery query(db);
    return select(query, QStringLiteral("SELECT symbol FROM metadata WHERE symbol = ?"),
                  {symbol}) &&
           query.next();
}

bool MetaData::refresh(const QString &symbol, const QString &replyLine, bool imported,
                       const QDate &today)
{
    const QStringList reply = splitReply(replyLine);
    if (reply.size() != kReplyValueCount) {
        qDebug().noquote() << "MetaData Error:"
                           << "the reply about" << symbol << "holds" << reply.size()
                           << "values instead of" << kReplyValueCount;
        return false;
    }
    QStringList row = QStringList{symbol} + reply;
    const QString suffixExchange = exchangeOfSuffix(symbol);
    if (!suffixExchange.isEmpty())
        row[2] = suffixExchange;
    if (imported)
        row[2] = QStringLiteral("Imported");
    // The stored date reads the same whatever the user's locale.
    row << QLocale::c().toString(today, QStringLiteral("dd MMM yyyy"));

    QSqlDatabase db = connection();
    if (!db.isValid())
        return false;
    if (!contains(db, symbol))
        return insert(row);
    QStringList changes = row.mid(1);
    changes << symbol;
    return update(changes);
}

} // namespace OrdaneData
