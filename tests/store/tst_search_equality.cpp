#include "store/Connection.h"
#include "store/LiteralCatalogue.h"
#include "store/RecordsetFields.h"
#include "store/SearchText.h"
#include "store/dialect/Dialect.h"
#include "store/shelf/SongSearch.h"
#include "store/shelf/SongThemes.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <functional>
#include <random>

namespace {

/// A thousand searches, with changes of the catalogue in between.
constexpr unsigned Catalogues = 25;
constexpr int SearchesEach = 40;

const QStringList& Words()
{
    static const QStringList words{u"luz"_qs,
                                   u"Luz"_qs,
                                   u"LUZ"_qs,
                                   u"água"_qs,
                                   u"Agua"_qs,
                                   u"A\u0301gua"_qs,
                                   u"coração"_qs,
                                   u"CORACAO"_qs,
                                   u"Não"_qs,
                                   u"nao"_qs,
                                   u"d'água"_qs,
                                   u"50%"_qs,
                                   u"a_b"_qs,
                                   u"[vivo"_qs,
                                   u"[a-c]"_qs,
                                   u"x]y"_qs,
                                   u"!"_qs,
                                   u" "_qs,
                                   u"  "_qs,
                                   u"-"_qs,
                                   u"Ø"_qs,
                                   u"straße"_qs,
                                   u"STRASSE"_qs,
                                   u"æ"_qs,
                                   u"Привет"_qs,
                                   u"привет"_qs,
                                   u"한국"_qs,
                                   u"\u1112\u1161"_qs,
                                   u"l·l"_qs,
                                   u"ŀ"_qs,
                                   u"e\u0302\u0301"_qs,
                                   u"ế"_qs,
                                   u"\u0301"_qs,
                                   u"\u0001"_qs,
                                   u"İ"_qs,
                                   u"ı"_qs,
                                   u"😀"_qs,
                                   u"ﬁ"_qs,
                                   u"Åb"_qs,
                                   u"\u212Bb"_qs,
                                   u"Am  E"_qs,
                                   u"\r\n"_qs,
                                   u"c\u0327a"_qs,
                                   u"ça"_qs,
                                   u"ab"_qs,
                                   u"abc"_qs,
                                   u"a"_qs,
                                   u"B"_qs,
                                   u"é"_qs,
                                   u"E"_qs,
                                   u"5*7"_qs,
                                   u"quê?"_qs,
                                   u"C#m"_qs,
                                   u"[é]ç*"_qs};
    return words;
}

/// Everything that is made up in one catalogue follows from its seed.
class Chance
{
public:
    explicit Chance(unsigned seed)
        : m_random(seed)
    {
    }

    int Below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    bool OneIn(int times) { return Below(times) == 0; }

    QString Text(int mostWords)
    {
        QString text = u""_qs;
        for (int i = Below(mostWords + 1); i > 0; --i)
            text += Words().at(Below(int(Words().size()))) + (OneIn(2) ? u" "_qs : u""_qs);
        return text;
    }

    QString TextOrNull(int mostWords) { return OneIn(8) ? QString() : Text(mostWords); }

    /// Something to look for: a word, a piece of one, or signs between such.
    QString Pattern()
    {
        static const QStringList signs{u"%"_qs,    u"_"_qs,   u"[al]"_qs, u"[!a]"_qs, u"[a-m]"_qs,
                                       u"["_qs,    u"]"_qs,   u"[]"_qs,   u"[!]"_qs,  u"[%]"_qs,
                                       u"[çÇ]"_qs, u"!"_qs,   u"__"_qs,   u"%%"_qs,   u"[_-a]"_qs,
                                       u"''"_qs,   u"*"_qs,   u"?"_qs,    u"#"_qs,    u"[?*]"_qs,
                                       u"[#]"_qs,  u"[!é]"_qs};
        QString pattern;
        for (int i = 1 + Below(2); i > 0; --i) {
            const QString& word = Words().at(Below(int(Words().size())));
            const int start = Below(int(word.size()));
            QString piece = OneIn(3) ? word : word.mid(start, 1 + Below(3));
            pattern += piece.remove(u'\'');
            if (OneIn(3))
                pattern += signs.at(Below(int(signs.size())));
        }
        return pattern;
    }

private:
    std::mt19937 m_random;
};

QString Quoted(const QString& text)
{
    return text.isNull() ? u"NULL"_qs : u"'" + QString(text).replace(u'\'', u"''"_qs) + u"'";
}

QString Number(Chance& chance, int bound)
{
    return chance.OneIn(10) ? u"NULL"_qs : QString::number(chance.Below(bound));
}

QString InsertSong(Chance& chance)
{
    return u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, "
           "CONTADOR) VALUES ("_qs +
           Quoted(chance.TextOrNull(3)) + u", " + Quoted(chance.TextOrNull(2)) + u", " +
           Quoted(chance.TextOrNull(12)) + u", " + Quoted(chance.TextOrNull(4)) + u", " +
           Quoted(chance.OneIn(9) ? QString() : u"C"_qs) + u", " +
           Quoted(chance.OneIn(9) ? QString() : u""_qs) + u", " + Number(chance, 4) + u", " +
           Number(chance, 5) + u")";
}

/// Any song, also one that is gone or was never there.
QString Link(Chance& chance, int songs)
{
    return u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES ("_qs + Number(chance, songs + 4) +
           u", " + Number(chance, 9) + u")";
}

QString Change(Chance& chance, int songs)
{
    const QString song = QString::number(chance.Below(songs + 4));
    switch (chance.Below(12)) {
    case 0:
        return InsertSong(chance);
    case 1:
        return u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = "_qs + song;
    case 2:
        return u"UPDATE MUSICA SET TITULO = "_qs + Quoted(chance.TextOrNull(3)) + u" WHERE ID = " +
               song;
    case 3:
        return u"UPDATE MUSICA SET MUSICA = "_qs + Quoted(chance.TextOrNull(12)) + u" WHERE ID = " +
               song;
    case 4:
        return u"DELETE FROM MUSICA WHERE ID = "_qs + song;
    case 5:
        return u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = "_qs + song;
    case 6:
        return u"UPDATE TEMA_MUSICA SET ID_TEMA = 2 WHERE ID_MUSICA = "_qs + song;
    case 7:
        return u"UPDATE MUSICA SET REFERENCIA = "_qs + Quoted(chance.TextOrNull(2)) +
               u", CATEGORIA = " + Number(chance, 4) + u" WHERE ID = " + song;
    case 8:
        return u"UPDATE MUSICA SET MUSICA2 = "_qs + Quoted(chance.TextOrNull(4)) + u" WHERE ID = " +
               song;
    case 9:
        return u"UPDATE TEMA SET DESCRICAO = "_qs + Quoted(chance.TextOrNull(2)) + u" WHERE ID = " +
               Number(chance, 9);
    case 10:
        if (chance.OneIn(4))
            return u"DELETE FROM TEMA WHERE ID = "_qs + Number(chance, 9);
        return u"INSERT INTO TEMA (DESCRICAO) VALUES ("_qs + Quoted(chance.TextOrNull(2)) + u")";
    default:
        return Link(chance, songs);
    }
}

/// Marked songs, some of them gone, in any order and some twice: for a file or for a list.
QString Marked(Chance& chance)
{
    QString list;
    for (int i = 1 + chance.Below(40); i > 0; --i)
        list += QString::number(chance.Below(150)) + u",";
    if (chance.OneIn(2))
        return u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA FROM "
               "MUSICA WHERE ID IN (0"_qs +
               list + u")";
    return u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
           "MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA "
           "ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.ID IN (0"_qs +
           list + u")";
}

/// Also of songs that are gone or were never there.
QString ThemesOfASong(Chance& chance)
{
    return u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA "
           "WHERE ID_MUSICA = 0"_qs +
           QString::number(chance.Below(40));
}

SearchText Search(Chance& chance)
{
    SearchText search;
    search.categories = QStringList{u"1,2"_qs, u"1"_qs, u"2"_qs, u"1,2"_qs}.at(chance.Below(4));
    if (chance.OneIn(6))
        search.letter = QString(QChar(u'A' + chance.Below(26)));
    if (chance.OneIn(2))
        search.title = chance.Pattern();
    if (chance.OneIn(4))
        search.reference = chance.Pattern();
    if (chance.OneIn(2))
        search.lyrics = chance.Pattern();
    if (chance.OneIn(4))
        search.themes = QStringList{u"2"_qs, u"0,1,2,3"_qs, u"5,4"_qs}.at(chance.Below(3));
    search.mostPlayedFirst = chance.OneIn(3);
    return search;
}

/// Alone, before, behind and between letters with and without accents.
QStringList Around(const QString& sign)
{
    return QStringList{sign, u"a"_qs + sign, sign + u"a"_qs, u"é"_qs + sign + u"ç"_qs,
                       u"e"_qs + sign + u"c"_qs};
}

/// @param typed  between the quotes of a literal
QString TitleSuggestions(const QString& typed)
{
    return u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE '"_qs + typed +
           u"%' ORDER BY TITULO & ' - ' & REFERENCIA";
}

QString ReferenceSuggestions(const QString& typed)
{
    return u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA WHERE REFERENCIA LIKE '"_qs + typed +
           u"%' ORDER BY REFERENCIA";
}

/// What is suggested while a title or a reference is being typed.
QString Suggestion(Chance& chance)
{
    const QString typed = chance.OneIn(6) ? QString() : chance.Pattern();
    return chance.OneIn(2) ? TitleSuggestions(typed) : ReferenceSuggestions(typed);
}

/// Titles, and in the opposite order references, that begin alike and are not the same.
const QStringList& Beginnings()
{
    static const QStringList texts{u"Amor"_qs,
                                   u"amora"_qs,
                                   u"AMAR"_qs,
                                   u"a"_qs,
                                   u"Á"_qs,
                                   u"água"_qs,
                                   u"A\u0301gua viva"_qs,
                                   u"àgua"_qs,
                                   u"Agua"_qs,
                                   u"a\u0301\u0302"_qs,
                                   u"bamba"_qs,
                                   u"Luz"_qs,
                                   u"luz da lua"_qs,
                                   u"D'água"_qs,
                                   u"d'Agua"_qs,
                                   u"Dagua"_qs,
                                   u"'a'"_qs,
                                   u"50% de amor"_qs,
                                   u"%a"_qs,
                                   u"_a"_qs,
                                   u"a_b"_qs,
                                   u"a%b"_qs,
                                   u"[a]"_qs,
                                   u"[a"_qs,
                                   u"]a"_qs,
                                   u"! a"_qs,
                                   u"*a"_qs,
                                   u"  a"_qs,
                                   u"Ça"_qs,
                                   u"c\u0327a"_qs,
                                   u"ca"_qs,
                                   u"\u0301a"_qs,
                                   u"Æa"_qs,
                                   u"ﬁm"_qs,
                                   u"fim"_qs,
                                   u"straße"_qs,
                                   u"STRASSE"_qs,
                                   u"Привет"_qs,
                                   u"한국"_qs,
                                   u"\u1112\u1161\u11ab"_qs,
                                   u"😀a"_qs,
                                   u"\u0001a"_qs,
                                   u""_qs};
    return texts;
}

} // namespace

/// Every search gives the rows of the statement as it stands, in its order and with all their
/// fields, whatever lies in the catalogue and whoever has changed it in between.
class tst_search_equality : public QObject
{
    Q_OBJECT

private slots:
    void givesTheRowsOfTheLiteralStatement_data();
    void givesTheRowsOfTheLiteralStatement();
    void suggestsTheRowsOfTheLiteralStatement_data() { givesTheRowsOfTheLiteralStatement_data(); }
    void suggestsTheRowsOfTheLiteralStatement();
    void givesMarkedSongsAsTheLiteralStatementDoes_data()
    {
        givesTheRowsOfTheLiteralStatement_data();
    }
    void givesMarkedSongsAsTheLiteralStatementDoes();
    void givesThemesOfASongAsTheLiteralStatementDoes_data()
    {
        givesTheRowsOfTheLiteralStatement_data();
    }
    void givesThemesOfASongAsTheLiteralStatementDoes();
    void takesEverySignAsTheLiteralStatementDoes_data();
    void takesEverySignAsTheLiteralStatementDoes();
    void suggestsWhatBeginsAsTheLiteralStatementDoes_data();
    void suggestsWhatBeginsAsTheLiteralStatementDoes();

private:
    static void Compare(unsigned seed, const std::function<QString(Chance&)>& statement);
};

void tst_search_equality::givesTheRowsOfTheLiteralStatement_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= Catalogues; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_search_equality::givesTheRowsOfTheLiteralStatement()
{
    QFETCH(unsigned, seed);
    Compare(seed, [](Chance& chance) { return Search(chance).Sql(); });
}

void tst_search_equality::suggestsTheRowsOfTheLiteralStatement()
{
    QFETCH(unsigned, seed);
    Compare(seed, Suggestion);
}

void tst_search_equality::givesMarkedSongsAsTheLiteralStatementDoes()
{
    QFETCH(unsigned, seed);
    Compare(seed, Marked);
}

void tst_search_equality::givesThemesOfASongAsTheLiteralStatementDoes()
{
    QFETCH(unsigned, seed);
    Compare(seed, ThemesOfASong);
}

void tst_search_equality::takesEverySignAsTheLiteralStatementDoes_data()
{
    QTest::addColumn<QString>("sign");
    for (const char16_t* sign :
         {u"%",   u"_",       u"*",    u"?",    u"#",     u"[", u"]",      u"[]",    u"[%]", u"[_]",
          u"[[]", u"[*?#]",   u"[!a]", u"[!é]", u"[a-ç]", u"!", u"-",      u"^",     u"\\",  u"é",
          u"É",   u"e\u0301", u"ç",    u"Ç",    u"ã",     u"ê", u"\u0301", u"\u0327"})
        QTest::newRow(QString::fromUtf16(sign).toUtf8().constData()) << QString::fromUtf16(sign);
}

/// In each column.
void tst_search_equality::takesEverySignAsTheLiteralStatementDoes()
{
    QFETCH(QString, sign);
    const TestCatalogue catalogue;
    const QString insertion =
        u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, CATEGORIA) VALUES ("_qs;
    QString filling = insertion + u"'a', NULL, '', 1);";
    const QStringList inners{sign,          u"%"_qs,   u"_"_qs,    u"*"_qs, u"?"_qs,
                             u"#"_qs,       u"[x]"_qs, u"[!a]"_qs, u"ê"_qs, u"É"_qs,
                             u"c\u0327"_qs, u"\\"_qs,  u""_qs};
    for (const QString& inner : inners) {
        for (const QString& text : Around(inner)) {
            const QString value = Quoted(text);
            filling += insertion + value + u", " + value + u", " + value + u", 1);";
        }
    }
    filling += u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT ID, 1 FROM MUSICA"_qs;
    catalogue.Run(filling);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const LiteralCatalogue literal(catalogue.Path());
    qsizetype found = 0;
    for (const QString& pattern : Around(sign)) {
        for (QString SearchText::*column :
             {&SearchText::title, &SearchText::reference, &SearchText::lyrics}) {
            SearchText search;
            search.*column = pattern;
            const QList<QStringList> expected = literal.Rows(search.Sql());
            QCOMPARE(AllFields(connection.Execute(search.Sql())), expected);
            found += expected.size();
        }
    }
    QVERIFY(found > 0);
}

void tst_search_equality::suggestsWhatBeginsAsTheLiteralStatementDoes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isFound");
    const auto row = [](const char* name, const QString& typed, bool isFound = true) {
        QTest::newRow(name) << typed << isFound;
    };
    row("one letter of many texts", u"a"_qs);
    row("one capital of many texts", u"A"_qs);
    row("one letter of few texts", u"l"_qs);
    row("one letter that stands only inside", u"g"_qs, false);
    row("one letter of no text", u"x"_qs, false);
    row("all texts", u"%"_qs);
    row("a word", u"amor"_qs);
    row("a whole text", u"luz da lua"_qs);
    row("more than any text", u"luz da lua cheia"_qs, false);
    row("an accent", u"á"_qs);
    row("an accent as a capital", u"Á"_qs);
    row("an accent as a mark of its own", u"a\u0301"_qs);
    row("another accent", u"à"_qs);
    row("an accent that no text has", u"ã"_qs, false);
    row("an accent inside", u"águ"_qs);
    row("no accent where texts have one", u"agua"_qs);
    row("two accents on one letter", u"a\u0301\u0302"_qs);
    row("an accent without a letter", u"\u0301"_qs);
    row("a cedilla", u"ç"_qs);
    row("a letter that may have a cedilla", u"c"_qs);
    row("an apostrophe inside", u"d'"_qs);
    row("an apostrophe and an accent", u"d'á"_qs);
    row("an apostrophe first", u"'"_qs);
    row("any character", u"_"_qs);
    row("any character and a letter", u"_a"_qs);
    row("a letter and any character", u"a_"_qs);
    row("any run and a letter", u"%a"_qs);
    row("a letter, any run and a letter", u"a%b"_qs);
    row("two of any run", u"a%%"_qs);
    row("a set", u"[al]"_qs);
    row("a set with an accent", u"[áç]"_qs);
    row("a range", u"[a-d]"_qs);
    row("outside a set", u"[!a]"_qs);
    row("a letter and a set", u"a[mg]"_qs);
    row("an empty set", u"[]"_qs);
    row("a letter and an empty set", u"a[]"_qs);
    row("a sign of a set", u"[%]"_qs);
    row("a bracket of a set", u"[[]"_qs);
    row("an open bracket", u"["_qs);
    row("a closed bracket", u"]"_qs);
    row("an exclamation mark", u"!"_qs);
    row("an asterisk", u"*"_qs);
    row("blanks", u"  "_qs);
    row("two letters in one", u"æ"_qs);
    row("a ligature", u"ﬁ"_qs);
    row("what a ligature stands for", u"fi"_qs);
    row("a sharp s", u"straß"_qs);
    row("Cyrillic", u"п"_qs);
    row("a syllable", u"한"_qs);
    row("the first sound of a syllable", u"\u1112"_qs, false);
    row("a sign of two units", u"😀"_qs);
    row("a control character", u"\u0001"_qs);
}

/// Also after a song was taken out, changed and added.
void tst_search_equality::suggestsWhatBeginsAsTheLiteralStatementDoes()
{
    QFETCH(QString, typed);
    QFETCH(bool, isFound);
    const TestCatalogue catalogue;
    const QString insertion = u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, CATEGORIA) "
                              "VALUES ("_qs;
    QString filling = insertion + u"'amor', NULL, '', 1);" + insertion + u"NULL, 'amor', '', 1);";
    const QStringList& texts = Beginnings();
    for (qsizetype i = 0; i < texts.size(); ++i)
        filling += insertion + Quoted(texts[i]) + u", " + Quoted(texts[texts.size() - 1 - i]) +
                   u", '', 1);" + insertion + Quoted(texts[i]) + u", " + Quoted(texts[i]) +
                   u", '', 1);";
    catalogue.Run(filling);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const LiteralCatalogue literal(catalogue.Path());
    const Schema schema = CatalogueSchema();
    QString inText = typed;
    inText.replace(u'\'', u"''"_qs);
    const QStringList statements{TitleSuggestions(inText), ReferenceSuggestions(inText)};
    const QStringList changes{QString(), u"DELETE FROM MUSICA WHERE ID = 3"_qs,
                              u"UPDATE MUSICA SET TITULO = 'x', REFERENCIA = 'g' WHERE ID = 5"_qs,
                              insertion + u"'axé', 'axé', '', 1)"};
    for (const QString& change : changes) {
        if (!change.isEmpty())
            connection.Execute(change);
        connection.CommitBatch();
        for (const QString& sql : statements) {
            QVERIFY(SongSearch::Recognise(ReadStatement(sql, schema)));
            const QList<QStringList> expected = literal.Rows(sql);
            QCOMPARE(AllFields(connection.Execute(sql)), expected);
            if (change.isEmpty())
                QCOMPARE(!expected.isEmpty(), isFound);
        }
    }
}

void tst_search_equality::Compare(unsigned seed, const std::function<QString(Chance&)>& statement)
{
    Chance chance(seed);
    const TestCatalogue catalogue;
    const int songs = 20 + chance.Below(120);
    QString filling;
    for (int i = 0; i < songs; ++i)
        filling += InsertSong(chance) + u";";
    for (int i = 0; i < 2 * songs; ++i)
        filling += Link(chance, songs) + u";";
    filling +=
        u"INSERT INTO TEMA (DESCRICAO) VALUES ('Luz'), (NULL), ('Água'), (''), ('Luz'), ('d''água')"_qs;
    catalogue.Run(filling);

    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const LiteralCatalogue literal(catalogue.Path());
    const Schema schema = CatalogueSchema();
    int found = 0;
    for (int i = 0; i < SearchesEach; ++i) {
        for (int changes = chance.Below(3); changes > 0; --changes) {
            const QString change = Change(chance, songs);
            if (chance.OneIn(4))
                catalogue.Run(change);
            else
                connection.Execute(change);
            connection.CommitBatch();
        }
        const QString sql = statement(chance);
        const Syntax::Statement tree = ReadStatement(sql, schema);
        QVERIFY(SongSearch::Recognise(tree) || SongThemes::Recognise(tree));
        const QList<QStringList> expected = literal.Rows(sql);
        const QList<QStringList> rows = AllFields(connection.Execute(sql));
        QVERIFY2(rows == expected,
                 qPrintable(u"seed %1, search %2: %3"_qs.arg(seed).arg(i).arg(sql)));
        found += int(rows.size());
    }
    // Searches that find nothing would all be alike.
    QVERIFY(found > SearchesEach / 4);
}

QTEST_GUILESS_MAIN(tst_search_equality)
#include "tst_search_equality.moc"
