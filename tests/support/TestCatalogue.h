#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

/// One row of MUSICA for TestCatalogue::AddSong; a null QString is stored as NULL, an empty one
/// (u""_qs) as an empty text.
struct TestSong
{
    QString title = QStringLiteral("Santo Deus");
    QString reference = QStringLiteral("Anônimo");
    QString text = QStringLiteral("C  G7\r\nSanto Deus");
    QString text2 = QStringLiteral("D  A7\r\nSanto Deus");
    QString key = QStringLiteral("C");
    QString variation = QStringLiteral("");
    std::optional<int> category = 1;
    int count = 0;
};

/// A real catalogue file in a folder of its own, deleted with it: schema and fixed rows as
/// delivered, no song and no theme. It is written and read with plain SQLite on connections of its
/// own, one per call, so a test sees what any other tool would find in the file.
///
/// Every failure of SQLite is fatal: a test must not go on with another catalogue than it thinks.
class TestCatalogue
{
public:
    TestCatalogue();

    /// @return the full path of the catalogue file, called Melodario.mdb.
    QString Path() const;

    /// @return the folder of the file, without a trailing separator.
    QString Folder() const;

    /// @return the provider string that opens this file.
    QString ConnectionString() const;

    /// @return the provider string for any path.
    static QString ConnectionString(const QString& path);

    /// Runs any number of SQLite statements.
    void Run(const QString& sql) const;

    /// @return the rows of one SQLite query as SQLite writes them as text; NULL is a null QString.
    QList<QStringList> Rows(const QString& sql) const;

    /// @return the first field of the first row of a query.
    QString Field(const QString& sql) const;

    /// @return MUSICA.ID
    qint64 AddSong(const TestSong& song) const;
    qint64 AddSong(const QString& title,
                   const QString& reference = QStringLiteral("Anônimo")) const;

    /// @return TEMA.ID
    qint64 AddTheme(const QString& name, int order = 2) const;

    void Link(qint64 song, qint64 theme) const;

    /// @param date   stored as yyyy-mm-dd; an invalid date is stored as NULL
    /// @param songs  MUSICA.ID each, numbered by ORDEM from 0
    /// @return LISTA.ID
    qint64 AddSetlist(const QString& name, QDate date, const QList<qint64>& songs = {}) const;

private:
    QTemporaryDir m_folder;
};
