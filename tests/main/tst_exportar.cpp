#include "ExportarTeste.h"

#include <QFileInfo>
#include <QHeaderView>

/// From the marked songs to the export form and out of it again.
class tst_exportar : public ExportarTeste
{
    Q_OBJECT

private slots:
    void without_a_marked_song_it_says_so_data();
    void without_a_marked_song_it_says_so();
    void the_form_lists_the_marked_songs();
    void the_list_is_filled_like_the_search_result();
    void the_main_forms_count_line_tells_how_many();
    void songs_are_marked_in_the_order_shown();
    void statements_are_handed_in_as_given();
    void the_single_file_is_asked_for();
    void the_folder_is_asked_for();
    void a_cancelled_picker_writes_nothing_and_leaves_the_form_open_data();
    void a_cancelled_picker_writes_nothing_and_leaves_the_form_open();
    void the_message_names_the_place();
    void the_form_closes_after_the_message();
    void the_form_starts_anew_every_time();
    void closing_writes_nothing_data();
    void closing_writes_nothing();
    void the_main_form_cannot_be_used_meanwhile();
    void everything_is_reached_with_the_keyboard();
    void controls_have_names_for_a_screen_reader();
    void a_second_press_while_the_form_is_filled_does_nothing();
    void the_main_form_closed_while_the_form_is_filled();
    void a_failing_store_tells_and_shows_no_form();
    void a_failing_notice_leaves_the_form_as_it_is();
};

void tst_exportar::without_a_marked_song_it_says_so_data()
{
    QTest::addColumn<bool>("menu");
    QTest::newRow("menu") << true;
    QTest::newRow("toolbar") << false;
}

void tst_exportar::without_a_marked_song_it_says_so()
{
    QFETCH(bool, menu);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    QVERIFY(!Ao_Abrir([&] { menu ? Clica_Menu() : Clica_Toolbar(); }, [](QDialog&) {}));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].text, u"Marque as músicas da lista que você deseja exportar."_qs);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Informacao);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(m_comandos, QStringList());
}

void tst_exportar::the_form_lists_the_marked_songs()
{
    for (const QString& titulo : {u"Amor"_qs, u"Bem"_qs, u"Canto"_qs})
        Musica(titulo);
    Carrega_Exportar();
    Marca({0, 2});
    QVERIFY(Ao_Abrir([this] { Clica_Menu(); },
                     [](QDialog& form) {
                         QCOMPARE(form.windowTitle(), u"Exportar"_qs);
                         QVERIFY(form.isModal());
                         QCOMPARE(No<QLabel>(form, "lblTitulo")->text(),
                                  u"A(s) 2 música(s) abaixo serão exportadas."_qs);
                         auto* lista = No<ListaMusicas>(form, "lstExportar");
                         QCOMPARE(lista->ListCount(), 2);
                         QCOMPARE(lista->Tag(0), qint64{1});
                         QCOMPARE(lista->Tag(1), qint64{3});
                         const auto* caixa = No<QCheckBox>(form, "chkArquivo");
                         QCOMPARE(caixa->text(),
                                  u"Gerar um único arquivo para todas as músicas"_qs);
                         QVERIFY(caixa->isChecked());
                         QCOMPARE(No<QPushButton>(form, "cmdExportar")->text(), u"&Exportar"_qs);
                         QCOMPARE(No<QPushButton>(form, "cmdCancelar")->text(), u"&Fechar"_qs);
                         QVERIFY(!No<QProgressBar>(form, "ProgressBar")->isVisible());
                         QVERIFY(!No<QLabel>(form, "lblAviso")->isVisible());
                     }));
}

void tst_exportar::the_list_is_filled_like_the_search_result()
{
    TestSong outros;
    outros.reference = u"Tradição oral"_qs;
    outros.key = u"A"_qs;
    outros.variation = u"m"_qs;
    outros.count = 12;
    Musica(u"Asa do vento"_qs, {2}, outros);
    Carrega_Exportar();
    Marca({0});
    QVERIFY(No_Formulario([](QDialog& form) {
        const QAbstractItemModel* linhas = No<ListaMusicas>(form, "lstExportar")->model();
        const auto texto = [linhas](int coluna, int papel) {
            return linhas->index(0, coluna).data(papel).toString();
        };
        QCOMPARE(texto(0, Qt::DisplayRole), u"Asa do vento (Am)"_qs);
        QCOMPARE(texto(0, Qt::ToolTipRole), u"Asa do vento [12] (Am)"_qs);
        QCOMPARE(texto(0, Qt::UserRole), u"1"_qs);
        QCOMPARE(texto(1, Qt::DisplayRole), u"Tradição oral"_qs);
        QCOMPARE(texto(2, Qt::DisplayRole), u"Louvor, Outro"_qs);
        QStringList titulos;
        for (int i = 0; i < linhas->columnCount(); ++i)
            titulos.append(linhas->headerData(i, Qt::Horizontal).toString());
        QCOMPARE(titulos, QStringList({u"Título"_qs, u"Referência"_qs, u"Temas"_qs}));
    }));
}

void tst_exportar::the_main_forms_count_line_tells_how_many()
{
    for (const QString& titulo : {u"Amor"_qs, u"Bem"_qs, u"Canto"_qs})
        Musica(titulo);
    Carrega_Exportar();
    QCOMPARE(Contagem(), u"3 Registro(s) Encontrado(s)."_qs);
    Marca({0, 1});
    QVERIFY(No_Formulario(
        [this](QDialog&) { QCOMPARE(Contagem(), u"2 Registro(s) Encontrado(s)."_qs); }));
    QCOMPARE(Contagem(), u"2 Registro(s) Encontrado(s)."_qs);
    QCOMPARE(m_lista->ListCount(), 3);
}

void tst_exportar::songs_are_marked_in_the_order_shown()
{
    for (const QString& titulo : {u"Canto"_qs, u"Amor"_qs, u"Bem"_qs})
        Musica(titulo);
    Carrega_Exportar();
    Marca({2, 0}); // Canto before Amor
    QVERIFY(No_Formulario([](QDialog&) {}));
    QVERIFY2(m_comandos.value(0).endsWith(u"MUSICA.ID IN (02,1,)"), qPrintable(m_comandos[0]));

    m_lista->Ordena_Por(0); // turns the direction round
    m_comandos.clear();
    Marca({0, 2});
    QVERIFY(No_Formulario([](QDialog&) {}));
    QVERIFY2(m_comandos.value(0).endsWith(u"MUSICA.ID IN (01,2,)"), qPrintable(m_comandos[0]));
}

void tst_exportar::statements_are_handed_in_as_given()
{
    for (int i = 1; i <= 15; ++i)
        Musica(u"Canto %1"_qs.arg(i, 2, 10, QChar(u'0')));
    Carrega_Exportar();
    Marca({11, 14});
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    QStringList shared;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        m_comandos.append(sql);
        if (Funcoes::SQL == sql)
            shared.append(sql);
    });
    QVERIFY(No_Formulario([&](QDialog& form) {
        QCOMPARE(shared, m_comandos.first(1));
        shared.clear();
        QCOMPARE(
            m_comandos.value(0),
            u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
            "MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN "
            "TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.ID IN (012,15,)"_qs);
        m_comandos.clear();
        Aperta(form, "cmdExportar");
    }));
    // The list asks for themes of its own as it is painted.
    m_comandos.removeIf(
        [](const QString& sql) { return sql.startsWith(u"SELECT TEMA.DESCRICAO, TEMA.COR"); });
    QCOMPARE(m_comandos,
             QStringList({u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, "
                          "CATEGORIA FROM MUSICA WHERE ID IN (012,15,)"_qs,
                          u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = "
                          "TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA = 012"_qs,
                          u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = "
                          "TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA = 015"_qs}));
    QCOMPARE(shared, m_comandos);
    Funcoes::Conexao.SetStatementHook({});
}

void tst_exportar::the_single_file_is_asked_for()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    Exporta(true);
    QCOMPARE(m_escolhas->requests.size(), 1);
    const Pedido_Arquivo pedido = m_escolhas->requests[0];
    QCOMPARE(pedido.especie, Pedido_Arquivo::Salvar);
    QCOMPARE(pedido.titulo, u"Salvar Arquivo"_qs);
    QCOMPARE(pedido.filtro, u"Arquivo do Melodario (*.mld)|*.mld"_qs);
    QCOMPARE(pedido.extensao, u"*.mld"_qs);
    QCOMPARE(pedido.nome, u"CommonDialog"_qs);
}

void tst_exportar::the_folder_is_asked_for()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    Exporta(false);
    QCOMPARE(m_escolhas->requests.size(), 1);
    QCOMPARE(m_escolhas->requests[0].especie, Pedido_Arquivo::Pasta);
    QCOMPARE(m_escolhas->requests[0].titulo, u"Selecione a pasta destino"_qs);
}

void tst_exportar::a_cancelled_picker_writes_nothing_and_leaves_the_form_open_data()
{
    QTest::addColumn<bool>("one");
    QTest::newRow("save dialog") << true;
    QTest::newRow("folder picker") << false;
}

void tst_exportar::a_cancelled_picker_writes_nothing_and_leaves_the_form_open()
{
    QFETCH(bool, one);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    QVERIFY(No_Formulario([&](QDialog& form) {
        m_comandos.clear();
        if (!one)
            QTest::keyClick(No<QCheckBox>(form, "chkArquivo"), Qt::Key_Space);
        Aperta(form, "cmdExportar");
        QVERIFY(form.isVisible());
        QVERIFY(No<QPushButton>(form, "cmdExportar")->isEnabled());
    }));
    QCOMPARE(m_escolhas->requests.size(), 1);
    for (const QString& sql : m_comandos) // the list asks for themes as it is painted
        QVERIFY2(sql.startsWith(u"SELECT TEMA.DESCRICAO, TEMA.COR"), qPrintable(sql));
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Arquivos(), QStringList());
}

void tst_exportar::the_message_names_the_place()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {Caminho(u"domingo"_qs), m_destino->path()};
    Exporta(true);
    Exporta(false);
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[0].text,
             u"Arquivo gerado com sucesso!\nLocal: "_qs + Caminho(u"domingo.mld"_qs));
    QCOMPARE(m_caixas->boxes[1].text, u"Arquivos gerados com sucesso!\nLocal: "_qs +
                                          QDir::toNativeSeparators(m_destino->path()) +
                                          QDir::separator());
    for (const RecordingDialogs::Box& caixa : m_caixas->boxes) {
        QCOMPARE(caixa.icon, Icone::Informacao);
        QCOMPARE(caixa.title, u"Melodario"_qs);
    }
}

void tst_exportar::the_form_closes_after_the_message()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    bool abertoNaMensagem = false;
    QVERIFY(No_Formulario([&](QDialog& form) {
        m_caixas->whileOpen = [&] {
            abertoNaMensagem = form.isVisible();
            QVERIFY(QFileInfo::exists(Caminho(u"a.mld"_qs)));
        };
        Aperta(form, "cmdExportar");
        QVERIFY(!form.isVisible());
    }));
    QVERIFY(abertoNaMensagem);
    QVERIFY(!m_form->findChild<QDialog*>(u"frmExportar"_qs));
}

void tst_exportar::the_form_starts_anew_every_time()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega_Exportar();
    Marca({0});
    QVERIFY(No_Formulario([](QDialog& form) {
        QTest::keyClick(No<QCheckBox>(form, "chkArquivo"), Qt::Key_Space);
        QVERIFY(!No<QCheckBox>(form, "chkArquivo")->isChecked());
        Aperta(form, "cmdCancelar");
        QVERIFY(!form.isVisible());
    }));
    Marca({0, 1});
    QVERIFY(No_Formulario([](QDialog& form) {
        QVERIFY(No<QCheckBox>(form, "chkArquivo")->isChecked());
        QCOMPARE(No<QLabel>(form, "lblTitulo")->text(),
                 u"A(s) 2 música(s) abaixo serão exportadas."_qs);
    }));
}

void tst_exportar::closing_writes_nothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Esc") << 1;
    QTest::newRow("title bar") << 2;
}

void tst_exportar::closing_writes_nothing()
{
    QFETCH(int, way);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    QVERIFY(No_Formulario([way](QDialog& form) {
        if (way == 0)
            Aperta(form, "cmdCancelar");
        else if (way == 1)
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            form.close();
        QVERIFY(!form.isVisible());
    }));
    QVERIFY(m_escolhas->requests.isEmpty());
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Arquivos(), QStringList());
}

void tst_exportar::the_main_form_cannot_be_used_meanwhile()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    QVERIFY(No_Formulario([this](QDialog& form) {
        QCOMPARE(form.windowModality(), Qt::ApplicationModal);
        QCOMPARE(QApplication::activeModalWidget(), &form);
        QCOMPARE(form.parentWidget(), m_form.get());
    }));
}

void tst_exportar::everything_is_reached_with_the_keyboard()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {m_destino->path()};
    QVERIFY(Ao_Abrir(
        [this] { QTest::keyClick(m_form->Acha<QWidget>("txtTitulo"), Qt::Key_E, Qt::AltModifier); },
        [](QDialog& form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QTRY_VERIFY(No<QWidget>(form, "cmdExportar")->hasFocus());
            for (const char* seguinte : {"cmdCancelar", "lstExportar", "chkArquivo"}) {
                QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
                QVERIFY2(No<QWidget>(form, seguinte)->hasFocus(), seguinte);
            }
            QTest::keyClick(form.focusWidget(), Qt::Key_Space); // one file per song
            QTest::keyClick(form.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
            QTest::keyClick(form.focusWidget(), Qt::Key_Return); // in the list, as elsewhere
        }));
    QCOMPARE(Arquivos(), QStringList{u"Luz.mld"_qs});
}

void tst_exportar::controls_have_names_for_a_screen_reader()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    QVERIFY(No_Formulario([](QDialog& form) {
        QCOMPARE(No<QWidget>(form, "lstExportar")->accessibleName(), u"Músicas a exportar"_qs);
        QCOMPARE(No<QWidget>(form, "ProgressBar")->accessibleName(), u"Andamento da exportação"_qs);
    }));
}

void tst_exportar::a_second_press_while_the_form_is_filled_does_nothing()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    int vezes = 0;
    // Runs when the fill lets events run.
    QTimer::singleShot(0, m_form.get(), [this] { Clica_Toolbar(); });
    QVERIFY(No_Formulario([&vezes](QDialog&) { ++vezes; }));
    QCOMPARE(vezes, 1);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_exportar::the_main_form_closed_while_the_form_is_filled()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    QTimer::singleShot(0, m_form.get(), [this] { m_form->close(); });
    QVERIFY(!No_Formulario([](QDialog&) {}));
    QVERIFY(!m_form->isVisible());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_exportar::a_failing_store_tells_and_shows_no_form()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_catalogo->Run(u"ALTER TABLE MUSICA RENAME COLUMN REFERENCIA TO OUTRA"_qs);
    QVERIFY(!No_Formulario([](QDialog&) {}));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QVERIFY(!m_form->findChild<QDialog*>(u"frmExportar"_qs));
}

void tst_exportar::a_failing_notice_leaves_the_form_as_it_is()
{
    Musica(u"Luz ♪"_qs);
    Carrega_Exportar();
    Marca({0});
    // The list does not show it, the notice and the file do.
    m_catalogo->Run(u"ALTER TABLE MUSICA RENAME COLUMN MUSICA2 TO OUTRA"_qs);
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    QVERIFY(No_Formulario([this](QDialog& form) {
        QVERIFY(!No<QWidget>(form, "lblAviso")->isVisible());
        QVERIFY(m_caixas->boxes.isEmpty());
        Aperta(form, "cmdExportar");
        QVERIFY(form.isVisible());
    }));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Arquivos(), QStringList());
}

QTEST_MAIN(tst_exportar)
#include "tst_exportar.moc"
