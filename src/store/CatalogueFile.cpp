#include "store/CatalogueFile.h"

#include "runtime/FileTrouble.h"
#include "runtime/RuntimeError.h"
#include "store/dialect/Schema.h"
#include "store/sqlite/Statement.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>

namespace {

struct NeededTable
{
    const char* name;
    std::vector<const char*> columns;
};

const std::array<NeededTable, 7>& NeededTables()
{
    static const std::array<NeededTable, 7> tables = {{
        {"MUSICA",
         {"ID", "TITULO", "REFERENCIA", "MUSICA", "MUSICA2", "TOM", "VARIACAO", "CATEGORIA",
          "CONTADOR"}},
        {"TEMA", {"ID", "DESCRICAO", "ORDEM", "COR"}},
        {"TEMA_MUSICA", {"ID_MUSICA", "ID_TEMA"}},
        {"LISTA", {"ID", "NOME", "DATA"}},
        {"LISTA_MUSICA", {"ID_LISTA", "ID_MUSICA", "ORDEM"}},
        {"TOM", {"ID", "NOTA", "ORDEM", "MAIS"}},
        {"VARIACAO", {"ID", "NOMENCLATURA"}},
    }};
    return tables;
}

/// A file in the older format names it behind four bytes.
constexpr qsizetype JetNameAt = 4;
const QByteArray JetNames[] = {QByteArrayLiteral("Standard Jet DB"),
                               QByteArrayLiteral("Standard ACE DB")};

[[noreturn]] void Refuse(const QString& whatFailed, const QString& description)
{
    throw RuntimeError(RuntimeError::StoreFailure, whatFailed, description);
}

[[noreturn]] void RefuseUnread(const QString& path, const QString& why)
{
    Refuse(QStringLiteral("O arquivo do banco de dados não pode ser lido: %1.").arg(why), path);
}

/// A folder or a device has a name as well.
void CheckKind(const QString& path)
{
    const QFileInfo found(path);
    if (found.isFile())
        return;
    if (found.isDir())
        Refuse(QStringLiteral("O banco de dados é um arquivo, e isto é uma pasta."), path);
    if (found.exists())
        Refuse(QStringLiteral("O banco de dados é um arquivo comum, e isto não é."), path);
    // In a folder that one may not enter nothing seems to exist.
    std::error_code failure;
    if (!std::filesystem::exists(path.toStdU16String(), failure) && failure)
        RefuseUnread(path, FileTrouble(failure));
    Refuse(QStringLiteral("O arquivo do banco de dados não existe."), path);
}

ColumnType TypeOf(std::string_view declared)
{
    // The types that the catalogue is created with; another tool may have changed letter case.
    const QByteArray type = QByteArray(declared.data(), static_cast<qsizetype>(declared.size()));
    if (type.compare("INTEGER", Qt::CaseInsensitive) == 0)
        return ColumnType::Long;
    if (type.compare("SMALLINT", Qt::CaseInsensitive) == 0)
        return ColumnType::Integer;
    if (type.compare("TEXT", Qt::CaseInsensitive) == 0)
        return ColumnType::Text;
    if (type.compare("DATE", Qt::CaseInsensitive) == 0)
        return ColumnType::Date;
    return ColumnType::Other;
}

QString ToQString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

qint64 ReadNumber(sqlite3* database, const QByteArray& pragma)
{
    Statement statement(database, pragma);
    return statement.Step() ? statement.Whole(0) : 0;
}

void ReadEdge(sqlite3* database, const QByteArray& table, const QByteArray& order)
{
    Statement statement(database,
                        "SELECT * FROM \"" + table + "\" ORDER BY rowid " + order + " LIMIT 1");
    while (statement.Step()) {
        // A long text is read when it is asked for, not before.
        for (int column = 0; column < statement.ColumnCount(); ++column)
            statement.Text(column);
    }
}

} // namespace

QString CatalogueFile::PathFrom(const QString& connectionString)
{
    const QString source = QStringLiteral("Data Source=");
    const qsizetype found = connectionString.indexOf(source, 0, Qt::CaseInsensitive);
    if (found < 0)
        Refuse(QStringLiteral("Falta o endereço do banco de dados."),
               QStringLiteral("no Data Source"));
    const qsizetype start = found + source.size();
    qsizetype end =
        connectionString.lastIndexOf(QStringLiteral(";User Id="), -1, Qt::CaseInsensitive);
    if (end < start)
        end = connectionString.size();
    QString path = connectionString.mid(start, end - start);
    if (path.isEmpty())
        Refuse(QStringLiteral("Falta o endereço do banco de dados."),
               QStringLiteral("empty Data Source"));
    return path;
}

bool CatalogueFile::IsOlderFormat(QByteArrayView header)
{
    return std::any_of(std::begin(JetNames), std::end(JetNames), [header](const QByteArray& name) {
        return header.size() > JetNameAt && header.sliced(JetNameAt).startsWith(name);
    });
}

void CatalogueFile::CheckHeader(const QString& path)
{
    CheckKind(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        RefuseUnread(path, FileTrouble(file));
    const QByteArray header = file.read(HeaderLength);
    if (file.error() != QFileDevice::NoError)
        RefuseUnread(path, FileTrouble(file));
    if (header.isEmpty())
        Refuse(QStringLiteral("O arquivo do banco de dados está vazio."), path);
    if (IsOlderFormat(header))
        Refuse(QStringLiteral("O banco de dados está no formato antigo e precisa ser "
                              "convertido antes."),
               path);
    // The name ends with the NUL of the literal.
    static constexpr char format[] = "SQLite format 3";
    if (header.size() < HeaderLength || !header.startsWith(QByteArray(format, sizeof format)))
        Refuse(QStringLiteral("O arquivo não é um banco de dados do Melodario."), path);
}

void CatalogueFile::CheckLength(sqlite3* database, const QString& path)
{
    const qint64 length =
        ReadNumber(database, "PRAGMA page_count") * ReadNumber(database, "PRAGMA page_size");
    const qint64 found = QFileInfo(path).size();
    if (found < length)
        Refuse(QStringLiteral("O arquivo do banco de dados está danificado."),
               QStringLiteral("%1 bytes of %2").arg(found).arg(length));
}

Schema CatalogueFile::ReadSchema(sqlite3* database)
{
    Statement statement(database, "SELECT m.name, c.name, c.type FROM sqlite_master AS m "
                                  "JOIN pragma_table_info(m.name) AS c "
                                  "WHERE m.type = 'table' ORDER BY m.rowid, c.cid");
    Schema schema;
    Table table;
    while (statement.Step()) {
        const QString name = ToQString(statement.Text(0));
        if (name != table.name) {
            if (!table.columns.empty())
                schema.Add(std::move(table));
            table = Table{name, {}};
        }
        table.columns.push_back({ToQString(statement.Text(1)), TypeOf(statement.Text(2))});
    }
    if (!table.columns.empty())
        schema.Add(std::move(table));
    return schema;
}

std::vector<Table> CatalogueFile::NeededFrom(const Schema& schema)
{
    std::vector<Table> tables;
    for (const NeededTable& needed : NeededTables()) {
        if (const Table* table = schema.Find(QString::fromLatin1(needed.name)))
            tables.push_back(*table);
    }
    return tables;
}

void CatalogueFile::CheckTables(sqlite3* database, const Schema& schema)
{
    for (const NeededTable& needed : NeededTables()) {
        const Table* table = schema.Find(QString::fromLatin1(needed.name));
        if (!table)
            Refuse(QStringLiteral("O arquivo não é um banco de dados do Melodario."),
                   QStringLiteral("no table ") + QString::fromLatin1(needed.name));
        for (const char* column : needed.columns) {
            if (!table->Find(QString::fromLatin1(column)))
                Refuse(QStringLiteral("O arquivo não é um banco de dados do Melodario."),
                       QStringLiteral("no column %1.%2")
                           .arg(QString::fromLatin1(needed.name), QString::fromLatin1(column)));
        }
        // Both ends of a table lie on different ways through it; the middle would cost a start
        // with a large catalogue too much.
        ReadEdge(database, needed.name, "ASC");
        ReadEdge(database, needed.name, "DESC");
    }
}
