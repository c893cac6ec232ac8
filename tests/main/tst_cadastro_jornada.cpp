#include "CadastroTeste.h"

/// A song's whole life in the main form, as a user goes through it: entered, found by a search,
/// corrected from its row, looked at, deleted with the Delete key. The file is read after each
/// step.
class tst_cadastro_jornada : public CadastroTeste
{
    Q_OBJECT

private slots:
    void aSongFromItsEntryToItsDeletion();

private:
    QList<QStringList> Linhas() const
    {
        return m_catalogo->Rows(
            u"SELECT TITULO, MUSICA, MUSICA2, (SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA WHERE "
            "ID_MUSICA = MUSICA.ID) FROM MUSICA ORDER BY ID"_qs);
    }
    void Procura(const QString& parte)
    {
        m_form->mnuPesquisa_Click();
        Digita("txtTitulo", parte);
        QTRY_VERIFY(!Acha<QTimer>("Timer1")->isActive());
    }
    void Clica_Linha(int linha, Qt::MouseButton botao)
    {
        const auto* lista = Acha<ListaMusicas>("lstMusicas");
        QTest::mouseClick(lista->viewport(), botao, {},
                          lista->visualRect(lista->model()->index(linha, 0)).center());
    }
};

void tst_cadastro_jornada::aSongFromItsEntryToItsDeletion()
{
    Musica({.title = u"Outra"_qs, .text = u"C"_qs, .text2 = u"D"_qs});
    const QStringList outra{u"Outra"_qs, u"C"_qs, u"D"_qs, u"1"_qs};
    Carrega();

    Digita_Musica(u"Água viva"_qs);
    Clica("cmdCadSalvar");
    QCOMPARE(Linhas(), QList<QStringList>(
                           {outra, {u"Água viva"_qs, u"C\r\nLuz"_qs, u"C\r\nLuz"_qs, u"1"_qs}}));

    Procura(u"agua"_qs);
    QTRY_COMPARE(Titulos(), QStringList(u"Água viva"_qs));
    Clica_Linha(0, Qt::RightButton);
    QVERIFY(Acha<QWidget>("pctFrame_2")->isVisible());
    QCOMPARE(Texto("txtCadTitulo"), u"Água viva"_qs);
    QCOMPARE(Letra(1), u"C\r\nLuz"_qs);

    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    Caixa(1)->moveCursor(QTextCursor::End);
    Escreve(Caixa(1), u" do mundo"_qs);
    Clica_Tema(2);
    Clica("cmdCadSalvar");
    QCOMPARE(Linhas(),
             QList<QStringList>(
                 {outra, {u"Água viva"_qs, u"C\r\nLuz"_qs, u"C\r\nLuz do mundo"_qs, u"1,3"_qs}}));
    Clica("cmdCadIgualarSalvar");
    QCOMPARE(Linhas().last().at(1), u"C\r\nLuz do mundo"_qs);
    Clica("cmdVisualizar");
    QCOMPARE(Visualizadores().size(), 1);
    delete Visualizadores().first();

    Procura(u"agua"_qs);
    QTRY_COMPARE(Titulos(), QStringList(u"Água viva"_qs));
    Clica_Linha(0, Qt::LeftButton);
    m_caixas->boxes.clear();
    QTest::keyClick(Acha<QWidget>("lstMusicas"), Qt::Key_Delete);
    Confere_Caixa(u"Deseja realmente excluir esta música?"_qs, Icone::Pergunta);
    QCOMPARE(Linhas(), QList<QStringList>({outra}));
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"1"_qs);
    QCOMPARE(Titulos(), QStringList());
}

QTEST_MAIN(tst_cadastro_jornada)
#include "tst_cadastro_jornada.moc"
