#include "support/TestCatalogue.h"

#include "support/PlainSqlite.h"

#include <QDir>
#include <QFile>

namespace {

QByteArray Script(const char* name)
{
    QFile file(QStringLiteral(MELODARIO_SOURCE_DIR "/data/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", name);
    return file.readAll();
}

QVariant TextOrNull(const QString& text)
{
    return text.isNull() ? QVariant() : QVariant(text);
}

} // namespace

TestCatalogue::TestCatalogue()
{
    if (!m_folder.isValid())
        qFatal("no temporary folder");
    PlainSqlite database(Path());
    database.Run(Script("schema.sql"));
    database.Run(Script("fixed.sql"));
}

QString TestCatalogue::Path() const
{
    return m_folder.filePath(QStringLiteral("Melodario.mdb"));
}

QString TestCatalogue::Folder() const
{
    return QDir::cleanPath(m_folder.path());
}

QString TestCatalogue::ConnectionString() const
{
    return ConnectionString(Path());
}

QString TestCatalogue::ConnectionString(const QString& path)
{
    return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_qs + path +
           u";User Id=admin;Password=;"_qs;
}

void TestCatalogue::Run(const QString& sql) const
{
    PlainSqlite(Path()).Run(sql.toUtf8());
}

QList<QStringList> TestCatalogue::Rows(const QString& sql) const
{
    return PlainSqlite(Path()).Rows(sql);
}

QString TestCatalogue::Field(const QString& sql) const
{
    const auto rows = Rows(sql);
    if (rows.isEmpty())
        qFatal("no row: %s", qPrintable(sql));
    return rows.first().first();
}

qint64 TestCatalogue::AddSong(const TestSong& song) const
{
    PlainSqlite database(Path());
    database.Rows(u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO,"
                  " CATEGORIA, CONTADOR) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_qs,
                  {TextOrNull(song.title), TextOrNull(song.reference), TextOrNull(song.text),
                   TextOrNull(song.text2), TextOrNull(song.key), TextOrNull(song.variation),
                   song.category ? QVariant(*song.category) : QVariant(), song.count});
    return database.LastId();
}

qint64 TestCatalogue::AddSong(const QString& title, const QString& reference) const
{
    TestSong song;
    song.title = title;
    song.reference = reference;
    return AddSong(song);
}

qint64 TestCatalogue::AddTheme(const QString& name, int order) const
{
    PlainSqlite database(Path());
    database.Rows(u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES (?, ?, '')"_qs,
                  {TextOrNull(name), order});
    return database.LastId();
}

void TestCatalogue::Link(qint64 song, qint64 theme) const
{
    PlainSqlite(Path()).Rows(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (?, ?)"_qs,
                             {song, theme});
}

qint64 TestCatalogue::AddSetlist(const QString& name, QDate date, const QList<qint64>& songs) const
{
    PlainSqlite database(Path());
    const QVariant stored = date.isValid() ? QVariant(date.toString(u"yyyy-MM-dd"_qs)) : QVariant();
    database.Rows(u"INSERT INTO LISTA (NOME, DATA) VALUES (?, ?)"_qs, {TextOrNull(name), stored});
    const qint64 id = database.LastId();
    for (int i = 0; i < songs.size(); ++i)
        database.Rows(u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM) VALUES (?, ?, ?)"_qs,
                      {id, songs[i], i});
    return id;
}
