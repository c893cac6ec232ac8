#include "CadastroTeste.h"

/// What the entry panel chooses in its lists, on catalogues whose keys, variations and themes are
/// not the delivered ones, and what a save stores of it.
class tst_cadastro_escolhas : public CadastroTeste
{
    Q_OBJECT

private slots:
    void newSongTakesTheKeyOfIdentityOne();
    void newSongTakesTheVariationWithoutText();
    void withoutAnEmptyVariationNoneIsChosen();
    void theOnlyKeyAndVariationAreChosen();
    void theOnlyThemeIsCheckedForASongWithoutOne();
    void theOnlyThemeIsNotCheckedBesideALink();
    void keyOfAnotherSpellingIsNotChosen_data();
    void keyOfAnotherSpellingIsNotChosen();
    void whatIsNotChosenIsStoredEmpty();

private:
    QString Escolhida(const char* lista) const
    {
        const auto* combo = Acha<ComboBox>(lista);
        return combo->ListIndex() < 0 ? u"none"_qs : combo->currentText();
    }
};

void tst_cadastro_escolhas::newSongTakesTheKeyOfIdentityOne()
{
    // A scale that begins with A; the row with the identity 1 is still C.
    m_catalogo->Run(u"UPDATE TOM SET ORDEM = (ORDEM + 2) % 12 + 1"_qs);
    Carrega();
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->Text(0), u"A"_qs);
    QCOMPARE(Escolhida("cmbCadTom"), u"C"_qs);
    m_catalogo->Run(u"UPDATE TOM SET ID = ID + 20; UPDATE TOM SET ID = 1 WHERE NOTA = 'F#'"_qs);
    m_form->Inicializa_Cadastro(0);
    QCOMPARE(Escolhida("cmbCadTom"), u"F#"_qs);
    m_catalogo->Run(u"UPDATE TOM SET ID = 40 WHERE ID = 1"_qs);
    m_form->Inicializa_Cadastro(0);
    QCOMPARE(Escolhida("cmbCadTom"), u"none"_qs);
}

void tst_cadastro_escolhas::newSongTakesTheVariationWithoutText()
{
    m_catalogo->Run(u"DELETE FROM VARIACAO; INSERT INTO VARIACAO (ID, NOMENCLATURA) VALUES (1, "
                    "'m'), (2, '7'), (3, ''), (4, 'sus4')"_qs);
    Carrega();
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->ListIndex(), 2);
    QCOMPARE(Escolhida("cmbCadVariacao"), QString());
}

void tst_cadastro_escolhas::withoutAnEmptyVariationNoneIsChosen()
{
    m_catalogo->Run(u"UPDATE VARIACAO SET NOMENCLATURA = '7' WHERE NOMENCLATURA = ''"_qs);
    Carrega();
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->ListCount(), 2);
    QCOMPARE(Escolhida("cmbCadVariacao"), u"none"_qs);
}

void tst_cadastro_escolhas::theOnlyKeyAndVariationAreChosen()
{
    m_catalogo->Run(
        u"DELETE FROM TOM WHERE NOTA <> 'G'; DELETE FROM VARIACAO WHERE NOMENCLATURA = ''"_qs);
    const qint64 id = Musica({.key = u"D"_qs, .variation = u"7"_qs});
    Carrega();
    for (const qint64 qual : {qint64{0}, id}) {
        m_form->Inicializa_Cadastro(static_cast<double>(qual));
        QCOMPARE(Escolhida("cmbCadTom"), u"G"_qs);
        QCOMPARE(Escolhida("cmbCadVariacao"), u"m"_qs);
    }
}

void tst_cadastro_escolhas::theOnlyThemeIsCheckedForASongWithoutOne()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID > 1"_qs);
    Edita(m_catalogo->AddSong(u"Luz"_qs));
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
}

void tst_cadastro_escolhas::theOnlyThemeIsNotCheckedBesideALink()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID > 1"_qs);
    const qint64 id = m_catalogo->AddSong(u"Luz"_qs);
    m_catalogo->Link(id, 99); // to a theme that is gone
    Edita(id);
    QCOMPARE(Temas_Marcados(), QStringList());
}

void tst_cadastro_escolhas::keyOfAnotherSpellingIsNotChosen_data()
{
    QTest::addColumn<QString>("tom");
    QTest::newRow("a flat, though a sharp of the list names the same note") << u"Bb"_qs;
    QTest::newRow("a blank behind the note") << u"C "_qs;
    QTest::newRow("an identity of the table") << u"1"_qs;
    QTest::newRow("none") << u""_qs;
}

void tst_cadastro_escolhas::keyOfAnotherSpellingIsNotChosen()
{
    QFETCH(QString, tom);
    Edita(Musica({.key = tom}));
    QCOMPARE(Escolhida("cmbCadTom"), u"none"_qs);
}

/// Only what the lists offer can be stored: a key or variation of another program's catalogue has
/// to be chosen anew, or the song has none after a save.
void tst_cadastro_escolhas::whatIsNotChosenIsStoredEmpty()
{
    const qint64 id = Musica({.title = u"Luz"_qs, .key = u"Bb"_qs, .variation = u"sus9"_qs});
    const QString guardados = u"SELECT TOM || '|' || VARIACAO FROM MUSICA"_qs;
    Edita(id);
    QCOMPARE(m_catalogo->Field(guardados), u"Bb|sus9"_qs); // looking at it changes nothing
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
    QVERIFY(m_comandos.first().contains(u"', TOM = '', VARIACAO = '', CATEGORIA = 1 "));
    QCOMPARE(m_catalogo->Field(guardados), u"|"_qs);
    Acha<ComboBox>("cmbCadTom")->SetListIndex(10);
    Clica("cmdCadSalvar");
    QCOMPARE(m_catalogo->Field(guardados), u"A#|"_qs);
}

QTEST_MAIN(tst_cadastro_escolhas)
#include "tst_cadastro_escolhas.moc"
