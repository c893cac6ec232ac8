#include "store/Connection.h"
#include "store/Failed.h"
#include "store/FakeList.h"
#include "store/Preenche.h"
#include "support/TestCatalogue.h"

#include <QTest>

using namespace Funcoes;

namespace {

const QString Themes = u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs;

} // namespace

class tst_fillers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void comboShowsAPlaceholderWithoutRows();
    void editableComboStaysEmptyWithoutRows();
    void comboPutsAFirstItemInFront();
    void comboSelects_data();
    void comboSelects();
    void comboSelectsTheOnlyRow();
    void comboSelectsTheLaterOfTwoMatches();
    void comboSelectsNoNegativeIdentifier();
    void comboReadsNullAsZeroAndEmpty();
    void comboForgetsWhatItHeld();
    void comboRunsClicksThatOverwriteTheSharedBuffer();
    void comboRaisesAFailingQuery();

    void listShowsAPlaceholderWithoutRows();
    void listSelects_data();
    void listSelects();
    void listSelectsTheOnlyRowWithoutIdentifiers();
    void listStopsSelectingAtAnError();
    void listRaisesAFailingQuery();

    void songHasItsThemesInOneLine();
    void songWithoutThemesHasNone();
    void readsThemesWithoutTouchingTheSharedBuffer();
    void themesRaiseAFailingQuery();

private:
    void AddThemes(std::initializer_list<const char16_t*> names);

    std::unique_ptr<TestCatalogue> m_catalogue;
};

void tst_fillers::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    Conexao.Open(m_catalogue->ConnectionString());
    SQL = u"untouched"_qs;
}

void tst_fillers::cleanup()
{
    Conexao.Close();
    m_catalogue.reset();
}

void tst_fillers::AddThemes(std::initializer_list<const char16_t*> names)
{
    for (const char16_t* name : names)
        m_catalogue->AddTheme(QString::fromUtf16(name));
}

void tst_fillers::comboShowsAPlaceholderWithoutRows()
{
    FakeList list;
    Preenche_Combo(list, Themes, -1, true, u"TODAS"_qs);
    QCOMPARE(list.Texts(), QStringList(u"Não Cadastrado"_qs));
    QCOMPARE(list.ListIndex(), 0);
    QCOMPARE(list.Ids(), u"0"_qs);
    QCOMPARE(list.fills, 0);
}

void tst_fillers::editableComboStaysEmptyWithoutRows()
{
    FakeList list;
    list.style = ListControl::EditableCombo;
    list.AddItem(u"old"_qs);
    Preenche_Combo(list, Themes, -1, true, u"TODAS"_qs);
    QCOMPARE(list.ListCount(), 0);
    QCOMPARE(list.ListIndex(), -1);
}

void tst_fillers::comboPutsAFirstItemInFront()
{
    AddThemes({u"Louvor", u"Natal", u"Páscoa"});
    FakeList list;
    Preenche_Combo(list, Themes, -1, true, u"TODAS"_qs);
    QCOMPARE(list.Texts(), QStringList({u"TODAS"_qs, u"Louvor"_qs, u"Natal"_qs, u"Páscoa"_qs}));
    QCOMPARE(list.Ids(), u"0 1 2 3"_qs);
    QCOMPARE(list.ListIndex(), 0);
}

void tst_fillers::comboSelects_data()
{
    QTest::addColumn<Value>("selection");
    QTest::addColumn<int>("index");
    QTest::newRow("the identifier") << Value(2) << 1;
    QTest::newRow("an identifier as a fraction's number") << Value(2.0) << 1;
    QTest::newRow("no identifier is a fraction") << Value(1.5) << -1;
    QTest::newRow("beyond every identifier") << Value(1e10) << -1;
    QTest::newRow("no such identifier") << Value(9) << -1;
    QTest::newRow("a negative number") << Value(-1) << -1;
    QTest::newRow("zero, which no row has") << Value(0) << -1;
    QTest::newRow("the text") << Value(u"Am"_qs) << 2;
    QTest::newRow("a text in other letters") << Value(u"AM"_qs) << -1;
    QTest::newRow("a text of digits is a text") << Value(u"2"_qs) << 3;
    QTest::newRow("a part of a text") << Value(u"Nat"_qs) << -1;
    QTest::newRow("the empty text") << Value(u""_qs) << 4;
    QTest::newRow("NULL as the empty text") << Value() << 4;
}

void tst_fillers::comboSelects()
{
    QFETCH(Value, selection);
    QFETCH(int, index);
    AddThemes({u"Louvor", u"Natal", u"Am", u"2", u""});
    FakeList list;
    Preenche_Combo(list, u"SELECT ID, DESCRICAO FROM TEMA ORDER BY ID"_qs, selection, true, u""_qs);
    QCOMPARE(list.ListCount(), 5);
    QCOMPARE(list.ListIndex(), index);
}

void tst_fillers::comboSelectsTheOnlyRow()
{
    AddThemes({u"Louvor"});
    FakeList list;
    for (const Value& selection : {Value(-1), Value(9), Value(u"Outro"_qs), Value()}) {
        Preenche_Combo(list, Themes, selection, true, u""_qs);
        QCOMPARE(list.ListIndex(), 0);
        Preenche_Combo(list, Themes, selection, true, u"TODAS"_qs);
        QCOMPARE(list.ListIndex(), 1);
        Preenche_Combo(list, Themes, selection, false, u""_qs);
        QCOMPARE(list.ListIndex(), -1);
    }
}

void tst_fillers::comboSelectsTheLaterOfTwoMatches()
{
    AddThemes({u"Louvor", u"Natal", u"Louvor"});
    FakeList list;
    const QString query = u"SELECT ORDEM, DESCRICAO FROM TEMA ORDER BY ID"_qs;
    Preenche_Combo(list, query, 2, true, u"TODAS"_qs);
    QCOMPARE(list.ListIndex(), 3);
    int clicks = 0;
    list.click = [&clicks] { ++clicks; };
    Preenche_Combo(list, query, u"Louvor"_qs, true, u""_qs);
    QCOMPARE(list.ListIndex(), 2);
    QCOMPARE(clicks, 2);
}

void tst_fillers::comboSelectsNoNegativeIdentifier()
{
    m_catalogue->Run(u"INSERT INTO TEMA_MUSICA VALUES (-1, 7), (-5, 8)"_qs);
    FakeList list;
    for (const int selection : {-1, -5}) {
        Preenche_Combo(list, u"SELECT ID_MUSICA, ID_TEMA FROM TEMA_MUSICA"_qs, selection, true,
                       u""_qs);
        QCOMPARE(list.Ids(), u"-1 -5"_qs);
        QCOMPARE(list.ListIndex(), -1);
    }
}

void tst_fillers::comboReadsNullAsZeroAndEmpty()
{
    m_catalogue->Run(u"INSERT INTO TEMA_MUSICA VALUES (NULL, NULL), (5, 7)"_qs);
    FakeList list;
    Preenche_Combo(list, u"SELECT ID_MUSICA, ID_TEMA FROM TEMA_MUSICA"_qs, 0, false, u""_qs);
    QCOMPARE(list.Texts(), QStringList({u""_qs, u"7"_qs}));
    QCOMPARE(list.Ids(), u"0 5"_qs);
    QCOMPARE(list.ListIndex(), 0);
}

void tst_fillers::comboForgetsWhatItHeld()
{
    AddThemes({u"Louvor", u"Natal"});
    FakeList list;
    Preenche_Combo(list, Themes, 2, true, u""_qs);
    Preenche_Combo(list, Themes, -1, true, u""_qs);
    QCOMPARE(list.ListCount(), 2);
    QCOMPARE(list.ListIndex(), -1);
}

void tst_fillers::comboRunsClicksThatOverwriteTheSharedBuffer()
{
    AddThemes({u"Louvor", u"Natal", u"Páscoa"});
    FakeList list;
    list.click = [&] {
        SQL = u"SELECT * FROM TOM"_qs;
        Consulta = Conexao.Execute(SQL);
        Consulta.Close();
    };
    SQL = Themes;
    Preenche_Combo(list, SQL, 2, true, u"TODAS"_qs);
    QCOMPARE(list.Texts(), QStringList({u"TODAS"_qs, u"Louvor"_qs, u"Natal"_qs, u"Páscoa"_qs}));
    QCOMPARE(list.ListIndex(), 2);
}

void tst_fillers::comboRaisesAFailingQuery()
{
    FakeList list;
    list.AddItem(u"old"_qs);
    QCOMPARE(Failed([&] { Preenche_Combo(list, u"SELECT"_qs, -1, true, u""_qs); }).number,
             int{RuntimeError::StoreFailure});
    QCOMPARE(list.ListCount(), 0);
    QCOMPARE(list.fills, 0);
}

void tst_fillers::listShowsAPlaceholderWithoutRows()
{
    FakeList list;
    Preenche_ListBox(list, Themes, u"0,1"_qs, true);
    QCOMPARE(list.Texts(), QStringList(u"Não há dados a serem mostrados."_qs));
    QCOMPARE(list.Ids(), u"0"_qs);
    QCOMPARE(list.ListIndex(), -1);
    QCOMPARE(list.fills, 0);
}

void tst_fillers::listSelects_data()
{
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("selected");
    QTest::newRow("none") << u""_qs << u"1 2 3 4 5"_qs;
    QTest::newRow("two") << u"2,5"_qs << u"1 [2] 3 4 [5]"_qs;
    QTest::newRow("in any order, twice") << u"5,2,5"_qs << u"1 [2] 3 4 [5]"_qs;
    QTest::newRow("a blank matches nothing") << u"2, 5"_qs << u"1 [2] 3 4 5"_qs;
    QTest::newRow("a leading zero matches nothing") << u"02"_qs << u"1 2 3 4 5"_qs;
    QTest::newRow("empty parts") << u",3,,"_qs << u"1 2 [3] 4 5"_qs;
    QTest::newRow("unknown") << u"9,12"_qs << u"1 2 3 4 5"_qs;
}

void tst_fillers::listSelects()
{
    QFETCH(QString, ids);
    QFETCH(QString, selected);
    AddThemes({u"A", u"B", u"C", u"D", u"E"});
    FakeList list;
    Preenche_ListBox(list, Themes, ids, true);
    QCOMPARE(list.Ids(), selected);
    QCOMPARE(list.Texts().join(u' '), u"A B C D E"_qs);
}

void tst_fillers::listSelectsTheOnlyRowWithoutIdentifiers()
{
    AddThemes({u"Louvor"});
    FakeList list;
    Preenche_ListBox(list, Themes, u""_qs, true);
    QCOMPARE(list.Ids(), u"[1]"_qs);
    Preenche_ListBox(list, Themes, u""_qs, false);
    QCOMPARE(list.Ids(), u"1"_qs);
    Preenche_ListBox(list, Themes, u"7"_qs, true);
    QCOMPARE(list.Ids(), u"1"_qs);
}

void tst_fillers::listStopsSelectingAtAnError()
{
    AddThemes({u"A", u"B", u"C"});
    FakeList list;
    list.refused = 1;
    Preenche_ListBox(list, Themes, u"1,2,3"_qs, true);
    QCOMPARE(list.Ids(), u"[1] 2 3"_qs);
    QCOMPARE(list.fills, 0);
}

void tst_fillers::listRaisesAFailingQuery()
{
    FakeList list;
    list.AddItem(u"old"_qs);
    QCOMPARE(Failed([&] { Preenche_ListBox(list, u"SELECT X FROM Y"_qs, u""_qs, true); }).number,
             int{RuntimeError::StoreFailure});
    QCOMPARE(list.ListCount(), 0);
    QCOMPARE(list.fills, 0);
}

void tst_fillers::songHasItsThemesInOneLine()
{
    const qint64 song = m_catalogue->AddSong(u"Santo"_qs);
    m_catalogue->Link(song, m_catalogue->AddTheme(u"Sem Tema"_qs, 3));
    m_catalogue->Link(song, m_catalogue->AddTheme(u"Louvor"_qs, 2));
    QCOMPARE(Busca_Temas_Musica(static_cast<double>(song)), u"Louvor, Sem Tema"_qs);
    m_catalogue->Link(song, m_catalogue->AddTheme(u"Adoração"_qs, 2));
    m_catalogue->AddTheme(u"Natal"_qs);
    QCOMPARE(Busca_Temas_Musica(static_cast<double>(song)), u"Adoração, Louvor, Sem Tema"_qs);
}

void tst_fillers::songWithoutThemesHasNone()
{
    m_catalogue->AddSong(u"Santo"_qs);
    QCOMPARE(Busca_Temas_Musica(1), u""_qs);
    QCOMPARE(Busca_Temas_Musica(0), u""_qs);
}

void tst_fillers::readsThemesWithoutTouchingTheSharedBuffer()
{
    QString seen;
    Conexao.SetStatementHook([&seen](const QString& sql) { seen = sql; });
    Busca_Temas_Musica(57);
    Conexao.SetStatementHook({});
    QCOMPARE(seen, u"SELECT TEMA.DESCRICAO, TEMA.COR FROM TEMA_MUSICA INNER JOIN TEMA ON TEMA.ID = "
                   "TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA = 057 ORDER BY TEMA.ORDEM, "
                   "TEMA.DESCRICAO"_qs);
    QCOMPARE(SQL, u"untouched"_qs);
}

void tst_fillers::themesRaiseAFailingQuery()
{
    m_catalogue->Run(u"DROP TABLE TEMA_MUSICA"_qs);
    QCOMPARE(Failed([] { Busca_Temas_Musica(1); }).number, int{RuntimeError::StoreFailure});
}

QTEST_GUILESS_MAIN(tst_fillers)
#include "tst_fillers.moc"
