// The SQL dialect: any text is a statement or an error, typed text is never read as SQL, the
// rewritten search gives the rows of the literal one and of a plain loop, LIKE matches as its rules
// read.

#include "Input.h"
#include "PlainLike.h"

#include "runtime/RuntimeError.h"
#include "store/CatalogueSchema.h"
#include "store/Connection.h"
#include "store/StatementTemplates.h"
#include "store/dialect/Dialect.h"
#include "store/dialect/Parser.h"
#include "store/dialect/Resolver.h"
#include "store/dialect/Writer.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/sqlite/Statement.h"
#include "store/text/Like.h"
#include "support/TestCatalogue.h"

#include <QSet>

#include <sqlite3.h>

#include <algorithm>

using namespace Fuzz;

namespace {

constexpr int LongestRun = 100; // thousands of SQLite's steps

const std::array<QString, 96>& Words()
{
    static const std::array<QString, 96> words = {u"SELECT "_qs,
                                                  u"SELECT DISTINCT "_qs,
                                                  u"INSERT INTO "_qs,
                                                  u"UPDATE "_qs,
                                                  u"DELETE FROM "_qs,
                                                  u" FROM "_qs,
                                                  u" FROM MUSICA "_qs,
                                                  u" FROM TEMA_MUSICA "_qs,
                                                  u" INNER JOIN "_qs,
                                                  u" ON "_qs,
                                                  u" WHERE "_qs,
                                                  u" GROUP BY "_qs,
                                                  u" ORDER BY "_qs,
                                                  u" DESC"_qs,
                                                  u" ASC"_qs,
                                                  u" AS "_qs,
                                                  u" SET "_qs,
                                                  u" VALUES ("_qs,
                                                  u" AND "_qs,
                                                  u" OR "_qs,
                                                  u" NOT "_qs,
                                                  u" LIKE "_qs,
                                                  u" NOT LIKE "_qs,
                                                  u" IN ("_qs,
                                                  u" NOT IN ("_qs,
                                                  u" BETWEEN "_qs,
                                                  u" IS NULL"_qs,
                                                  u" IS NOT NULL"_qs,
                                                  u"NULL"_qs,
                                                  u"("_qs,
                                                  u"("_qs,
                                                  u")"_qs,
                                                  u")"_qs,
                                                  u","_qs,
                                                  u", "_qs,
                                                  u";"_qs,
                                                  u"*"_qs,
                                                  u"+"_qs,
                                                  u"-"_qs,
                                                  u"/"_qs,
                                                  u" & "_qs,
                                                  u"="_qs,
                                                  u"<>"_qs,
                                                  u"<"_qs,
                                                  u">"_qs,
                                                  u"<="_qs,
                                                  u">="_qs,
                                                  u"."_qs,
                                                  u"MUSICA"_qs,
                                                  u"TEMA"_qs,
                                                  u"TEMA_MUSICA"_qs,
                                                  u"LISTA"_qs,
                                                  u"LISTA_MUSICA"_qs,
                                                  u"TOM"_qs,
                                                  u"VARIACAO"_qs,
                                                  u"ID"_qs,
                                                  u"TITULO"_qs,
                                                  u"REFERENCIA"_qs,
                                                  u"MUSICA.ID"_qs,
                                                  u"MUSICA.TITULO"_qs,
                                                  u"MUSICA.MUSICA"_qs,
                                                  u"TEMA_MUSICA.ID_MUSICA"_qs,
                                                  u"ID_TEMA"_qs,
                                                  u"ID_LISTA"_qs,
                                                  u"LISTA.DATA"_qs,
                                                  u"DATA"_qs,
                                                  u"ORDEM"_qs,
                                                  u"CONTADOR"_qs,
                                                  u"CATEGORIA"_qs,
                                                  u"NOME"_qs,
                                                  u"[TEMA]"_qs,
                                                  u"[a b"_qs,
                                                  u"COUNT(*)"_qs,
                                                  u"MAX("_qs,
                                                  u"MIN("_qs,
                                                  u"COUNT("_qs,
                                                  u"DAY("_qs,
                                                  u"MONTH("_qs,
                                                  u"YEAR("_qs,
                                                  u"CDATE("_qs,
                                                  u"'%luz%'"_qs,
                                                  u"'5/3/2009'"_qs,
                                                  u"'d''água'"_qs,
                                                  u"\"x\""_qs,
                                                  u"'"_qs,
                                                  u"\""_qs,
                                                  u"012"_qs,
                                                  u"3"_qs,
                                                  u"1e9"_qs,
                                                  u"0.5"_qs,
                                                  u"0abc"_qs,
                                                  u"99999999999999999999"_qs,
                                                  u" MUSICA.ID = TEMA_MUSICA.ID_MUSICA "_qs,
                                                  u" TEMA ON TEMA.ID = ID_TEMA "_qs,
                                                  u"--"_qs,
                                                  u"\U0001F3B5"_qs};
    return words;
}

const std::array<QString, 32>& Typed()
{
    static const std::array<QString, 32> typed = {
        u"%"_qs,          u"%"_qs,   u"_"_qs, u"_"_qs,        u"["_qs, u"]"_qs,      u"[a-c]"_qs,
        u"[!a]"_qs,       u"!"_qs,   u"-"_qs, u"a"_qs,        u"á"_qs, u"A"_qs,      u"b"_qs,
        u"ç"_qs,          u"luz"_qs, u"'"_qs, u"\""_qs,       u";"_qs, u"--"_qs,     u"/*"_qs,
        u"?"_qs,          u"\\"_qs,  u" "_qs, u"gu"_qs,       u"Á"_qs, u"\u0301"_qs, u"\u0303"_qs,
        u"\U0001F3B5"_qs, u"n"_qs,   u"1"_qs, u") OR 1=1 "_qs};
    return typed;
}

struct Song
{
    QString id, title, reference, lyrics, category;
    QSet<QString> themes;
};

/// One small catalogue for all runs: read by the program's connection, by plain statements beside
/// it, and by loops over its songs.
class World
{
public:
    static World& Instance()
    {
        static World world;
        return world;
    }

    Connection program;
    sqlite3* handle = nullptr;
    QList<Song> songs;
    const Schema schema = CatalogueSchema();

private:
    World()
    {
        m_catalogue.Run(QString::fromUtf8(Rows));
        program.Open(m_catalogue.ConnectionString());
        if (sqlite3_open(m_catalogue.Path().toUtf8().constData(), &handle) != SQLITE_OK)
            std::abort();
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_exec(handle, "PRAGMA journal_mode = MEMORY", nullptr, nullptr, nullptr);
        SqlFunctions::AddAll(handle);
        for (const QStringList& row :
             m_catalogue.Rows(u"SELECT ID, TITULO, REFERENCIA, MUSICA, CATEGORIA FROM MUSICA"_qs))
            songs.append({row[0], row[1], row[2], row[3], row[4], {}});
        for (const QStringList& link : m_catalogue.Rows(u"SELECT * FROM TEMA_MUSICA"_qs))
            for (Song& song : songs) {
                if (song.id == link[0])
                    song.themes.insert(link[1]);
            }
    }

    static const char Rows[];
    TestCatalogue m_catalogue;
};

const char World::Rows[] = R"(
INSERT INTO MUSICA (ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, CONTADOR)
VALUES (1, 'Asa Branca', 'Tradicional', 'Am  E' || char(13, 10) || 'O sol', 'x', 'A', 'm', 2, 12),
       (2, 'Água Viva', 'Ana', 'C' || char(13, 10) || 'Luz', '', 'C', '', 1, 3),
       (3, 'agua viva', 'ana', 'SOL', 'dois', 'D', '', 1, 0),
       (4, 'D''água [viva]', 'Zé', 'chuva 50%', NULL, 'Bb', '', 2, 0),
       (5, 'Luz', 'Beto', 'luz_luz', 'dois', 'E', '', 1, 3),
       (6, 'luz', 'Beto', 'outra luz', 'dois', 'E', 'm', 1, 3),
       (7, 'Só', NULL, NULL, NULL, NULL, NULL, 1, 0),
       (8, 'Sem elo', 'Ninguém', 'sol', 'dois', 'C', '', 1, 99),
       (9, NULL, 'Ç', 'aaaaaaaaaaaaaaaaaaaab', NULL, NULL, '', 1, 3),
       (10, '', '', '', '', '', '', 2, NULL),
       (11, 'a' || char(0x301) || 'gua', 'b', '-!]' || char(0x1F3B5), '', 'C', '', 1, 1),
       (12, 'abacaxi', 'aba', 'bcabcabc', '', 'C', '', NULL, 1);
INSERT INTO TEMA (ID, DESCRICAO, ORDEM, COR) VALUES (1, 'Louvor', 2, ''), (3, 'Natal', 1, NULL);
INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)
VALUES (6, 3), (2, 2), (2, 1), (1, 3), (3, 1), (4, 5), (5, 4), (6, 1), (7, 6), (99, 1), (9, 3),
       (9, 3), (10, 1), (11, 2), (11, 3), (12, 1);
INSERT INTO LISTA (ID, NOME, DATA) VALUES (1, 'Ensaio', '2009-03-05'), (4, 'Sem data', NULL);
INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM) VALUES (1, 1, 1), (1, 3, 0), (1, 3, 2);
)";

int StopLongRun(void* counter)
{
    return ++*static_cast<int*>(counter) > LongestRun;
}

/// What a statement that was taken for one may never meet in SQLite.
void CheckPrepareFailure(const RuntimeError& failure, const Translation& translation)
{
    static const QString never[] = {
        u"syntax error"_qs,   u"unrecognized token"_qs, u"no such"_qs,        u"ambiguous"_qs,
        u"stack overflow"_qs, u"incomplete"_qs,         u"too many SQL va"_qs};
    for (const QString& words : never) {
        if (failure.Description().contains(words)) {
            Same("SQLite's verdict", failure.Description(), QString::fromUtf8(translation.sql));
        }
    }
}

/// Runs a statement on the plain handle and undoes it.
void RunAndUndo(const Translation& translation)
{
    sqlite3* const handle = World::Instance().handle;
    int counter = 0;
    sqlite3_exec(handle, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_progress_handler(handle, 1000, StopLongRun, &counter);
    try {
        Statement statement(handle, translation.sql);
        try {
            statement.Bind(translation.values);
            while (statement.Step()) {
            }
        } catch (const RuntimeError&) {
            // A value that does not fit, or a run that was stopped.
        }
    } catch (const RuntimeError& failure) {
        CheckPrepareFailure(failure, translation);
    }
    sqlite3_progress_handler(handle, 0, nullptr, nullptr);
    sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

/// SQLite sees no text literal, no comment and no second statement; all that is left are names in
/// double quotes.
void CheckOutside(const QByteArray& sql)
{
    bool inName = false;
    char last = 0;
    for (const char c : sql) {
        if (c == '"')
            inName = !inName;
        if (!inName)
            Holds("nothing typed stands in the statement",
                  c != '\'' && c != ';' && c != '`' && c != '[' && !(c == '-' && last == '-') &&
                      !(c == '*' && last == '/'));
        last = c;
    }
    Holds("names end", !inName);
}

QString Quoted(QString text, QChar quote)
{
    return quote + text.replace(QString(quote), QString(2, quote)) + quote;
}

/// The statement as it is read anew; nothing where it is none.
std::optional<Translation> ReadAnew(const QString& sql, const Shape* shape,
                                    StatementTemplates& templates)
{
    try {
        const Syntax::Statement statement = ReadStatement(sql, World::Instance().schema);
        Translation translation = Writer::Write(statement, Writer::Compared::Bound);
        if (shape && !templates.Find(*shape))
            templates.Keep(*shape, statement, translation, AskedOfMemory(statement));
        return translation;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// What a template of any earlier statement makes of this one is what reading it would.
void MeetTemplates(const QString& sql)
{
    static StatementTemplates templates;
    Shape shape;
    const bool isUsual = shape.Read(sql);
    const StatementTemplate* const known = isUsual ? templates.Find(shape) : nullptr;
    const auto again = known ? std::optional(known->With(shape)) : std::nullopt;
    const auto anew = ReadAnew(sql, isUsual ? &shape : nullptr, templates);
    if (!again)
        return;
    Holds("a template is one of a statement", anew.has_value());
    Same("statement of the template", anew->sql, again->sql);
    Holds("values of the template", anew->values == again->values);
    Same("kind of the template", anew->isQuery, again->isQuery);
}

/// @return the statement with other values in the places of its literals
QString WithOtherValues(const QString& sql, Input& input)
{
    Shape shape;
    if (!shape.Read(sql))
        return sql;
    QString other;
    qsizetype from = 0;
    for (qsizetype i = 0; i < shape.Count(); ++i) {
        const Shape::Literal& literal = shape.At(i);
        other += QStringView(sql).sliced(from, literal.place - from);
        if (input.Flag())
            other += literal.text;
        else if (literal.isText)
            other += Quoted(input.Text(input.Below(6), Typed()), literal.text.front());
        else
            other += QString::number(input.Below(4));
        from = literal.place + literal.text.size();
    }
    return other + QStringView(sql).sliced(from);
}

void RunAnything(const QString& sql)
{
    MeetTemplates(sql);
    Translation translation;
    try {
        translation = Translate(sql, World::Instance().schema);
    } catch (const RuntimeError& failure) {
        Same("kind of error", failure.Number(), RuntimeError::StoreFailure);
        return;
    }
    CheckOutside(translation.sql);
    Same("parameters",
         std::count(translation.sql.begin(), translation.sql.end(), '?') <
             static_cast<qsizetype>(translation.values.size()),
         0);
    RunAndUndo(translation);
}

/// Typed text becomes a value and changes nothing else.
void TypedText(Input& input)
{
    const QString shape =
        input.Of({u"SELECT * FROM MUSICA WHERE TITULO = %1 ORDER BY ID"_qs,
                  u"INSERT INTO MUSICA (TITULO, MUSICA, CATEGORIA) VALUES (%1, 'b', 01)"_qs,
                  u"UPDATE MUSICA SET MUSICA = %1, TITULO = \"c\" WHERE ID = 3"_qs,
                  u"SELECT DISTINCT REFERENCIA FROM MUSICA WHERE REFERENCIA LIKE %1"_qs,
                  u"DELETE FROM LISTA WHERE NOME & ' ' & ID IN ('x', %1,)"_qs,
                  u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 5, ID FROM TEMA WHERE"
                  " DESCRICAO = %1;"_qs});
    const QChar quote = input.Flag() ? u'\'' : u'"';
    const QString typed = input.Text(200, Typed());
    const Schema& schema = World::Instance().schema;
    const qsizetype at = shape.indexOf(u"%1");
    QString sql = shape;
    const Translation plain = Translate(sql.replace(at, 2, u"'x'"_qs), schema);
    sql = shape;
    const Translation actual = Translate(sql.replace(at, 2, Quoted(typed, quote)), schema);
    Same("statement around typed text", plain.sql, actual.sql);
    Same("number of values", static_cast<qint64>(plain.values.size()),
         static_cast<qint64>(actual.values.size()));
    const bool arrives = std::any_of(actual.values.begin(), actual.values.end(),
                                     [&](const Value& v) { return v.ToText() == typed; });
    Holds("typed text arrives as it is", arrives);
    RunAndUndo(actual);
}

QString FieldText(const Statement& statement, int column)
{
    if (statement.ColumnKind(column) == Statement::Kind::Null)
        return u"NULL"_qs;
    const std::string_view text = statement.Text(column);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The rows of a search without any rewriting of its join.
QStringList LiteralRows(const QString& sql)
{
    const World& world = World::Instance();
    const Complaint complaint(sql);
    Syntax::Statement tree = Parser(sql, complaint).ParseStatement();
    Resolver(world.schema, complaint).Resolve(tree);
    const Translation translation = Writer::Write(tree);
    Statement statement(world.handle, translation.sql);
    statement.Bind(translation.values);
    QStringList rows;
    while (statement.Step()) {
        QStringList row;
        for (int column = 0; column < statement.ColumnCount(); ++column)
            row << FieldText(statement, column);
        rows << row.join(u'|');
    }
    return rows;
}

QStringList ProgramRows(const QString& sql)
{
    QStringList rows;
    Recordset result = World::Instance().program.Execute(sql);
    for (; !result.Eof(); result.MoveNext()) {
        QStringList row;
        for (int column = 0; column < result.FieldNames().size(); ++column) {
            const Value field = result.Fields(column);
            row << (field.IsNull() ? u"NULL"_qs : field.ToText());
        }
        rows << row.join(u'|');
    }
    return rows;
}

struct Search
{
    QString title, reference, lyrics, letter;
    QStringList categories, themes;
    bool mostPlayed = false;
};

bool Contains(const QString& text, const QString& typed)
{
    if (typed.isEmpty())
        return true;
    // A field that is NULL matches nothing.
    return !text.isNull() &&
           PlainLike(QString(u'%' + typed + u'%').toStdString()).Matches(text.toStdString());
}

QSet<QString> PlainFound(const Search& search)
{
    QSet<QString> found;
    for (const Song& song : World::Instance().songs) {
        const bool linked =
            std::any_of(song.themes.begin(), song.themes.end(), [&](const QString& theme) {
                return search.themes.isEmpty() || search.themes.contains(theme);
            });
        const bool letter =
            search.letter.isEmpty() ||
            (!song.title.isNull() && PlainLike(QString(search.letter + u'%').toStdString())
                                         .Matches(song.title.toStdString()));
        if (linked && letter && search.categories.contains(song.category) &&
            Contains(song.title, search.title) && Contains(song.reference, search.reference) &&
            Contains(song.lyrics, search.lyrics))
            found.insert(song.id);
    }
    return found;
}

QString StatementOf(const Search& search)
{
    const auto contains = [](QStringView column, const QString& typed) {
        return typed.isEmpty() ? QString()
                               : u" AND MUSICA." % column % u" LIKE '%" % typed % u"%' ";
    };
    QString sql = u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
                  u"MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA "
                  u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA "
                  u" WHERE MUSICA.CATEGORIA IN (" %
                  search.categories.join(u',') % u") " % contains(u"TITULO", search.title) %
                  contains(u"REFERENCIA", search.reference) % contains(u"MUSICA", search.lyrics);
    if (!search.themes.isEmpty())
        sql += u" AND TEMA_MUSICA.ID_TEMA IN (" % search.themes.join(u',') % u") ";
    if (!search.letter.isEmpty())
        sql += u" AND MUSICA.TITULO LIKE '" % search.letter % u"%' ";
    return sql + (search.mostPlayed ? u" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "_qs
                                    : u" ORDER BY MUSICA.TITULO "_qs);
}

/// Three routes to one answer.
void SearchSongs(Input& input)
{
    const auto typed = [&input] {
        return input.Flag() ? input.Text(input.Below(12), Typed()).remove(u'\'') : QString();
    };
    Search search;
    search.categories = input.Of({u"1,2"_qs, u"1"_qs, u"2"_qs}).split(u',');
    for (unsigned themes = input.Below(8); themes > 4; --themes)
        search.themes << QString::number(input.Below(8));
    search.mostPlayed = input.Flag();
    if (input.Below(5) == 0)
        search.letter = QChar(char16_t('A' + input.Below(26)));
    search.title = typed();
    search.reference = typed();
    search.lyrics = typed();

    const QString sql = StatementOf(search);
    const QStringList rows = ProgramRows(sql);
    Same("literal and rewritten search", LiteralRows(sql).join(u'\n'), rows.join(u'\n'));
    const QSet<QString> found = PlainFound(search);
    Same("number of songs found", found.size(), rows.size());
    for (const QString& row : rows)
        Holds("each song is found by the plain loop", found.contains(row.section(u'|', 0, 0)));
}

void MatchPattern(Input& input)
{
    const std::string pattern = input.Text(input.Below(64), Typed()).toStdString();
    const bool raw = input.Below(4) == 0;
    const std::string text =
        raw ? input.Rest().toStdString() : input.Text(500, Typed()).toStdString();
    const Like like(pattern);
    const bool expected = PlainLike(pattern).Matches(text);
    Same("LIKE", expected, like.Matches(text));
    Same("LIKE with bases at hand", expected, like.Matches(text, Fold::Bases(text)));
    std::vector<Fold::Accented> accented;
    Fold::AppendAccented(accented, text);
    Same("LIKE without the text", expected, like.Matches(Fold::Bases(text), accented));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    switch (input.Below(8)) {
    case 0:
        RunAnything(QString::fromUtf8(input.Rest()));
        break;
    case 1:
    case 2: {
        const QString sql = input.Text(2048, Words());
        RunAnything(sql);
        RunAnything(WithOtherValues(sql, input));
        break;
    }
    case 3:
        TypedText(input);
        break;
    case 4:
        SearchSongs(input);
        break;
    default:
        MatchPattern(input);
    }
    return 0;
}
