#include "ExportarTeste.h"

#include <numeric>

/// What the export writes and where, read byte for byte.
class tst_exportar_arquivos : public ExportarTeste
{
    Q_OBJECT

private slots:
    void three_songs_in_one_file();
    void three_songs_one_per_file();
    void songs_come_in_the_order_of_the_store();
    void names_lose_signs_that_titles_keep();
    void a_title_of_nothing_but_signs_names_a_file_without_a_name();
    void songs_of_every_length_come_whole();
    void the_later_of_two_equal_names_wins();
    void an_existing_file_is_replaced_without_a_question_data();
    void an_existing_file_is_replaced_without_a_question();
    void the_root_folder_gets_a_second_separator();
    void a_folder_given_with_its_separator_gets_no_other_file();
    void missing_texts_get_their_defaults_and_empty_ones_stay_empty();
    void themes_come_in_the_order_of_the_store();
    void a_song_deleted_meanwhile_is_left_out();
    void all_songs_deleted_meanwhile_data();
    void all_songs_deleted_meanwhile();
    void a_song_without_a_title_cannot_name_its_file();
    void a_destination_that_takes_nothing_data();
    void a_destination_that_takes_nothing();
    void a_failed_export_leaves_the_form_as_it_was();
    void the_catalogue_stays_as_it_was();

private:
    /// Marks every row and exports it. @param destino  the answer of the picker
    void Exporta_Todas(bool um_arquivo, const QString& destino)
    {
        QList<int> linhas(m_lista->ListCount());
        std::iota(linhas.begin(), linhas.end(), 0);
        Marca(linhas);
        m_escolhas->chosen = {destino};
        Exporta(um_arquivo);
    }
};

void tst_exportar_arquivos::three_songs_in_one_file()
{
    for (const QString& titulo : {u"Amor"_qs, u"Bem"_qs, u"Canto"_qs, u"Dia"_qs})
        Musica(titulo);
    Carrega_Exportar();
    Marca({0, 1, 3});
    m_escolhas->chosen = {Caminho(u"domingo"_qs)};
    Exporta(true);
    QCOMPARE(Arquivos(), QStringList{u"domingo.mld"_qs});
    QCOMPARE(Conteudo(u"domingo.mld"_qs),
             Documento(Linhas("Amor") + Linhas("Bem") + Linhas("Dia")));
}

void tst_exportar_arquivos::three_songs_one_per_file()
{
    for (const QString& titulo : {u"Asa Branca"_qs, u"Bem"_qs, u"Canção"_qs})
        Musica(titulo);
    Carrega_Exportar();
    Exporta_Todas(false, m_destino->path());
    QCOMPARE(Arquivos(), QStringList({u"Asa_Branca.mld"_qs, u"Bem.mld"_qs, u"Canção.mld"_qs}));
    QCOMPARE(Conteudo(u"Asa_Branca.mld"_qs), Documento(Linhas("Asa Branca")));
    QCOMPARE(Conteudo(u"Bem.mld"_qs), Documento(Linhas("Bem")));
    QCOMPARE(Conteudo(u"Canção.mld"_qs), Documento(Linhas("Can\xE7\xE3o")));
}

void tst_exportar_arquivos::songs_come_in_the_order_of_the_store()
{
    for (const QString& titulo : {u"Canto"_qs, u"Amor"_qs, u"Bem"_qs})
        Musica(titulo);
    Carrega_Exportar();
    Exporta_Todas(true, Caminho(u"a.mld"_qs));
    QCOMPARE(Conteudo(u"a.mld"_qs), Documento(Linhas("Canto") + Linhas("Amor") + Linhas("Bem")));
}

void tst_exportar_arquivos::names_lose_signs_that_titles_keep()
{
    Musica(u"Quem és tu? Salmo 1: 2"_qs);
    Carrega_Exportar();
    Exporta_Todas(false, m_destino->path());
    QCOMPARE(Arquivos(), QStringList{u"Quem_és_tu_Salmo_1_2.mld"_qs});
    QCOMPARE(Conteudo(Arquivos()[0]), Documento(Linhas("Quem \xE9s tu? Salmo 1: 2")));
}

void tst_exportar_arquivos::a_title_of_nothing_but_signs_names_a_file_without_a_name()
{
    Musica(u"?/*"_qs);
    Carrega_Exportar();
    Exporta_Todas(false, m_destino->path());
    QCOMPARE(Arquivos(), QStringList{u".mld"_qs});
    QCOMPARE(Conteudo(u".mld"_qs), Documento(Linhas("?/*")));
}

void tst_exportar_arquivos::the_later_of_two_equal_names_wins()
{
    Musica(u"Luz?"_qs);
    Musica(u"Luz"_qs);
    Musica(u"Luz:"_qs);
    Carrega_Exportar();
    Exporta_Todas(false, m_destino->path());
    QCOMPARE(Arquivos(), QStringList{u"Luz.mld"_qs});
    QCOMPARE(Conteudo(u"Luz.mld"_qs), Documento(Linhas("Luz:")));
    QCOMPARE(m_caixas->boxes.size(), 1);
}

void tst_exportar_arquivos::an_existing_file_is_replaced_without_a_question_data()
{
    QTest::addColumn<bool>("one");
    QTest::newRow("one file for all") << true;
    QTest::newRow("one file per song") << false;
}

void tst_exportar_arquivos::an_existing_file_is_replaced_without_a_question()
{
    QFETCH(bool, one);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    QFile velho(Caminho(u"Luz.mld"_qs));
    QVERIFY(velho.open(QIODevice::WriteOnly));
    QVERIFY(velho.write(QByteArray(100000, 'x')) == 100000);
    velho.close();
    Exporta_Todas(one, one ? Caminho(u"Luz.mld"_qs) : m_destino->path());
    QCOMPARE(Arquivos(), QStringList{u"Luz.mld"_qs});
    QCOMPARE(Conteudo(u"Luz.mld"_qs), Documento(Linhas("Luz")));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY(m_caixas->boxes[0].text.contains(u"com sucesso!"));
}

void tst_exportar_arquivos::the_root_folder_gets_a_second_separator()
{
    const qint64 id = Musica(u"Luz"_qs);
    Carrega_Exportar();
    // Nothing is left to be written there.
    m_escolhas->whileOpen = [&] {
        m_catalogo->Run(u"DELETE FROM MUSICA WHERE ID = %1"_qs.arg(id));
    };
    const QString raiz = QDir::toNativeSeparators(QDir::rootPath());
    Exporta_Todas(false, raiz);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].text,
             u"Arquivos gerados com sucesso!\nLocal: "_qs + raiz + QDir::separator());
}

void tst_exportar_arquivos::a_folder_given_with_its_separator_gets_no_other_file()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Exporta_Todas(false, m_destino->path() + u'/');
    QCOMPARE(Arquivos(), QStringList{u"Luz.mld"_qs});
}

/// A file is written in pieces, which nobody can see.
void tst_exportar_arquivos::songs_of_every_length_come_whole()
{
    QByteArray linhas;
    QString textos;
    int id = 0;
    for (const int tamanho : {10, 60'000, 80'000, 300'000, 127'000, 0, 1}) {
        const QString titulo = u"Música %1"_qs.arg(++id);
        Musica(titulo);
        const QByteArray letra =
            QByteArray("Luz da lua[br]").repeated(tamanho / 14) + QByteArray(tamanho % 14, 'x');
        textos += u"UPDATE MUSICA SET MUSICA = '"_qs +
                  QString::fromLatin1(letra).replace(u"[br]"_qs, u"\r\n"_qs) + u"' WHERE ID = " +
                  QString::number(id) + u";";
        linhas += Linhas(titulo.toLatin1()).replace("C  G7[br]Santo Deus", letra);
    }
    m_catalogo->Run(textos);
    Carrega_Exportar();
    Exporta_Todas(true, Caminho(u"a.mld"_qs));
    QVERIFY(Conteudo(u"a.mld"_qs) == Documento(linhas));
    QCOMPARE(Arquivos(), QStringList{u"a.mld"_qs});
}

void tst_exportar_arquivos::missing_texts_get_their_defaults_and_empty_ones_stay_empty()
{
    TestSong nada;
    nada.reference = nada.text = nada.text2 = nada.key = nada.variation = QString();
    TestSong vazia;
    vazia.reference = vazia.text = vazia.text2 = vazia.key = vazia.variation = u""_qs;
    vazia.category = 2;
    Musica(u"Sem nada"_qs, {}, nada);
    Musica(u"Vazia"_qs, {}, vazia);
    Carrega_Exportar();
    m_lista->selectAll();
    m_catalogo->Run(u"UPDATE MUSICA SET TITULO = NULL, CATEGORIA = NULL WHERE ID = 1;"
                    "UPDATE MUSICA SET TITULO = '' WHERE ID = 2;"
                    "UPDATE TEMA SET DESCRICAO = NULL WHERE ID = 1"_qs);
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    Exporta(true);
    const QByteArray tema = "       <temas>\r\n           <descricao></descricao>\r\n"
                            "       </temas>\r\n   </musica>\r\n";
    QCOMPARE(Conteudo(u"a.mld"_qs),
             Documento("   <musica>\r\n       <titulo>Sem T\xEDtulo</titulo>\r\n"
                       "       <referencia>Sem Refer\xEAncia</referencia>\r\n"
                       "       <letra1>Sem Letra</letra1>\r\n       <letra2>Sem Letra</letra2>\r\n"
                       "       <tom>C</tom>\r\n       <variacao></variacao>\r\n"
                       "       <categoria>1</categoria>\r\n" +
                       tema +
                       "   <musica>\r\n       <titulo></titulo>\r\n"
                       "       <referencia></referencia>\r\n       <letra1></letra1>\r\n"
                       "       <letra2></letra2>\r\n       <tom></tom>\r\n"
                       "       <variacao></variacao>\r\n       <categoria>2</categoria>\r\n" +
                       tema));
}

void tst_exportar_arquivos::themes_come_in_the_order_of_the_store()
{
    const qint64 id = m_catalogo->AddSong(u"Luz"_qs);
    for (const qint64 tema : {m_catalogo->AddTheme(u"R > B"_qs, 9), qint64{2}, qint64{1}})
        m_catalogo->Link(id, tema);
    m_catalogo->Link(id, 2);
    Carrega_Exportar();
    Exporta_Todas(true, Caminho(u"a.mld"_qs));
    const QByteArray entre = "</descricao>\r\n           <descricao>";
    QCOMPARE(Conteudo(u"a.mld"_qs), Documento(Linhas("Luz", "Louvor" + entre + "Outro" + entre +
                                                                "Outro" + entre + "R > B")));
}

void tst_exportar_arquivos::a_song_deleted_meanwhile_is_left_out()
{
    for (const QString& titulo : {u"Amor"_qs, u"Bem"_qs, u"Canto"_qs})
        Musica(titulo);
    Carrega_Exportar();
    m_escolhas->whileOpen = [&] { m_catalogo->Run(u"DELETE FROM MUSICA WHERE ID = 2"_qs); };
    Exporta_Todas(true, Caminho(u"a.mld"_qs));
    QCOMPARE(Conteudo(u"a.mld"_qs), Documento(Linhas("Amor") + Linhas("Canto")));
}

void tst_exportar_arquivos::all_songs_deleted_meanwhile_data()
{
    an_existing_file_is_replaced_without_a_question_data();
}

void tst_exportar_arquivos::all_songs_deleted_meanwhile()
{
    QFETCH(bool, one);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    m_escolhas->whileOpen = [&] { m_catalogo->Run(u"DELETE FROM MUSICA"_qs); };
    Exporta_Todas(one, one ? Caminho(u"a.mld"_qs) : m_destino->path());
    if (one)
        QCOMPARE(Conteudo(u"a.mld"_qs), Documento(QByteArray()));
    else
        QCOMPARE(Arquivos(), QStringList());
    QVERIFY(m_caixas->boxes.value(0).text.contains(u"com sucesso!"));
}

void tst_exportar_arquivos::a_song_without_a_title_cannot_name_its_file()
{
    for (const QString& titulo : {u"Amor"_qs, u"Bem"_qs, u"Canto"_qs})
        Musica(titulo);
    m_catalogo->Run(u"UPDATE MUSICA SET TITULO = NULL WHERE ID = 2"_qs);
    Carrega_Exportar();
    Exporta_Todas(false, m_destino->path());
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QVERIFY2(m_caixas->boxes[0].text.startsWith(u"A música 2 não tem título"),
             qPrintable(m_caixas->boxes[0].text));
    QCOMPARE(Arquivos(), QStringList{u"Amor.mld"_qs}); // what was written stays

    // In one file for all it is no trouble.
    Exporta_Todas(true, Caminho(u"todas.mld"_qs));
    QCOMPARE(Conteudo(u"todas.mld"_qs),
             Documento(Linhas("Amor") + Linhas("Sem T\xEDtulo") + Linhas("Canto")));
}

void tst_exportar_arquivos::a_destination_that_takes_nothing_data()
{
    QTest::addColumn<bool>("one");
    QTest::addColumn<QString>("place");
    QTest::newRow("read-only, one file") << true << u"/proc/a.mld"_qs;
    QTest::newRow("read-only, one per song") << false << u"/proc"_qs;
    QTest::newRow("folder gone, one file") << true << u"nenhuma/a.mld"_qs;
    QTest::newRow("folder gone, one per song") << false << u"nenhuma"_qs;
    QTest::newRow("a folder of that name, one file") << true << u"pasta.mld"_qs;
}

void tst_exportar_arquivos::a_destination_that_takes_nothing()
{
    QFETCH(bool, one);
    QFETCH(QString, place);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    QVERIFY(QDir(m_destino->path()).mkdir(u"pasta.mld"_qs));
    Exporta_Todas(one, place.startsWith(u'/') ? place : Caminho(place));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QVERIFY2(m_caixas->boxes[0].text.startsWith(u"Não foi possível gravar o arquivo “"),
             qPrintable(m_caixas->boxes[0].text));
    QCOMPARE(Arquivos(), QStringList());
}

void tst_exportar_arquivos::a_failed_export_leaves_the_form_as_it_was()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {Caminho(u"nenhuma/a.mld"_qs), Caminho(u"a.mld"_qs)};
    QVERIFY(No_Formulario([](QDialog& form) {
        Aperta(form, "cmdExportar");
        QVERIFY(form.isVisible());
        QVERIFY(!No<QProgressBar>(form, "ProgressBar")->isVisible());
        for (const char* controle : {"chkArquivo", "cmdExportar", "cmdCancelar"})
            QVERIFY2(No<QWidget>(form, controle)->isEnabled(), controle);
        QVERIFY(No<QWidget>(form, "cmdExportar")->hasFocus());
        Aperta(form, "cmdExportar"); // and now to a place that exists
        QVERIFY(!form.isVisible());
    }));
    QCOMPARE(Arquivos(), QStringList{u"a.mld"_qs});
}

void tst_exportar_arquivos::the_catalogue_stays_as_it_was()
{
    Musica(u"Amor"_qs);
    Musica(u"R&B <ao> vivo"_qs);
    Carrega_Exportar();
    const auto conteudo = [this] {
        QFile arquivo(m_catalogo->Path());
        return arquivo.open(QIODevice::ReadOnly) ? arquivo.readAll() : QByteArray();
    };
    const QByteArray antes = conteudo();
    QVERIFY(!antes.isEmpty());
    Exporta_Todas(true, Caminho(u"a.mld"_qs));
    Exporta_Todas(false, m_destino->path());
    QCOMPARE(Arquivos().size(), 3);
    QVERIFY(conteudo() == antes);
}

QTEST_MAIN(tst_exportar_arquivos)
#include "tst_exportar_arquivos.moc"
