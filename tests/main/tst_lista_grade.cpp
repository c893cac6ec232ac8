// The grid of stored setlists and the dialog that asks what to do with one.

#include "ListaTeste.h"

#include "main/Datas.h"
#include "main/frmMensagem2.h"
#include "viewer/frmVisualizar.h"

#include <QContextMenuEvent>
#include <QHeaderView>

class tst_lista_grade : public ListaTeste
{
    Q_OBJECT

private slots:
    void theNewestSetlistComesFirst();
    void rowsShowNameAndDate();
    void aSetlistWithoutADateOrAName();
    void anEmptyGrid();
    void columnsHaveTheirNames();
    void headersTurnTheOrderRound();
    void theDirectionTurnsRoundWhateverTheColumn();
    void aRefillShowsTheQuerysOrderAgain();
    void theCurrentRowStaysCurrentWhenSorted();
    void doubleClicksAndEnterInAnEmptyGridDoNothing();
    void aDoubleClickBesideTheRowsDoesNothing();
    void enterOpensTheCurrentSetlistWithoutADialog();
    void aHeldEnterOpensOneViewer();
    void tabMakesTheFirstRowCurrent();
    void theMenuKeyAsksAsADoubleClickDoes();
    void theRightButtonAsksNothing();
    void abrirOpensAViewerOnTheSetlist();
    void theDialogLooksAsGiven();
    void escIsCancelar();
    void closingTheDialogAnswersNothing();
    void enterPressesAbrir();
    void accessKeysAnswer_data();
    void accessKeysAnswer();
    void aSharedAccessKeyTakesTurns();
    void theDialogResetsTheIdentityBeforeItAnswers();
    void excluirIsNoChoiceWhileItAsks();
    void aColumnMadeWiderKeepsItsShare();
    void sortingIgnoresItsErrors();
    void datesWrittenInAnotherWay();
    void setlistsOfTheSameDay();
    void setlistsOfTheSameNameKeepTheirOrder();
    void twoConversions_data();
    void twoConversions();

private:
    int Linha() const { return Acha<GradeListas>("lstLista")->currentIndex().row(); }
    void Cabecalho(int coluna) const
    {
        auto* cabecalho = Acha<GradeListas>("lstLista")->header();
        QTest::mouseClick(
            cabecalho->viewport(), Qt::LeftButton, {},
            QPoint(cabecalho->sectionViewportPosition(coluna) + 20, cabecalho->height() / 2));
    }
};

void tst_lista_grade::theNewestSetlistComesFirst()
{
    // As texts these dates would come in another order, whichever way they are written.
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2010, 1, 20));
    m_catalogo->AddSetlist(u"C"_qs, QDate(2008, 12, 31));
    m_catalogo->AddSetlist(u"D"_qs, QDate(2009, 12, 1));
    m_catalogo->AddSetlist(u"E"_qs, QDate(999, 1, 1));
    Carrega();
    QCOMPARE(Grade(), QStringList({u"B|2010-01-20"_qs, u"D|2009-12-01"_qs, u"A|2009-03-05"_qs,
                                   u"C|2008-12-31"_qs, u"E|0999-01-01"_qs}));
    QCOMPARE(Texto("lblResultado2"), u"5 Registro(s) Encontrado(s)."_qs);
}

void tst_lista_grade::rowsShowNameAndDate()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    Carrega();
    const QAbstractItemModel* modelo = Acha<GradeListas>("lstLista")->model();
    QCOMPARE(modelo->index(0, 0).data().toString(), u"Ensaio"_qs);
    QCOMPARE(modelo->index(0, 0).data(Qt::ToolTipRole).toString(), u"Ensaio"_qs);
    QCOMPARE(modelo->index(0, 0).data(Qt::UserRole).toString(), u"1"_qs);
    QCOMPARE(modelo->index(0, 1).data().toString(), u"2009-03-05"_qs);
    QCOMPARE(modelo->index(0, 1).data(Qt::ToolTipRole).toString(), u"05/03/2009"_qs);
}

void tst_lista_grade::aSetlistWithoutADateOrAName()
{
    m_catalogo->AddSetlist(QString(), QDate(), {Musica(u"Amor"_qs)});
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    Carrega();
    QCOMPARE(Grade(), QStringList({u"Ensaio|2009-03-05"_qs, u"|"_qs}));
    Responde(1, "cmdEditar");
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(Texto("txtData"), u"__/__/____"_qs);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
}

void tst_lista_grade::anEmptyGrid()
{
    Carrega();
    QCOMPARE(Grade(), QStringList());
    QCOMPARE(Texto("lblResultado2"), u"0 Registro(s) Encontrado(s)."_qs);
    QVERIFY(Desenho_No_Meio(*Acha<GradeListas>("lstLista")));
}

void tst_lista_grade::columnsHaveTheirNames()
{
    Carrega();
    const QAbstractItemModel* modelo = Acha<GradeListas>("lstLista")->model();
    QCOMPARE(modelo->columnCount(), 2);
    QCOMPARE(modelo->headerData(0, Qt::Horizontal).toString(), u"Nome da Lista"_qs);
    QCOMPARE(modelo->headerData(1, Qt::Horizontal).toString(), u"Data (aaaa-mm-dd)"_qs);
}

void tst_lista_grade::headersTurnTheOrderRound()
{
    m_catalogo->AddSetlist(u"Bem"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"Água"_qs, QDate(2010, 1, 20));
    m_catalogo->AddSetlist(u"canto"_qs, QDate(2008, 12, 31));
    Carrega();
    const QString bem = u"Bem|2009-03-05"_qs;
    const QString agua = u"Água|2010-01-20"_qs;
    const QString canto = u"canto|2008-12-31"_qs;
    Cabecalho(1);
    QCOMPARE(Grade(), QStringList({agua, bem, canto}));
    Cabecalho(1);
    QCOMPARE(Grade(), QStringList({canto, bem, agua}));
    Cabecalho(0);
    QCOMPARE(Grade(), QStringList({canto, bem, agua}));
    Cabecalho(0);
    QCOMPARE(Grade(), QStringList({agua, bem, canto}));
}

void tst_lista_grade::theDirectionTurnsRoundWhateverTheColumn()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2010, 1, 20));
    Carrega();
    Cabecalho(0); // descending
    QCOMPARE(Grade(), QStringList({u"B|2010-01-20"_qs, u"A|2009-03-05"_qs}));
    Cabecalho(1); // ascending
    QCOMPARE(Grade(), QStringList({u"A|2009-03-05"_qs, u"B|2010-01-20"_qs}));
}

void tst_lista_grade::aRefillShowsTheQuerysOrderAgain()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2010, 1, 20));
    Carrega();
    const auto* cabecalho = Acha<GradeListas>("lstLista")->header();
    Cabecalho(1);
    Cabecalho(1);
    QCOMPARE(Grade(), QStringList({u"A|2009-03-05"_qs, u"B|2010-01-20"_qs}));
    QVERIFY(cabecalho->isSortIndicatorShown());
    Escolhe("mnuLista");
    QVERIFY(!cabecalho->isSortIndicatorShown());
    QCOMPARE(Grade(), QStringList({u"B|2010-01-20"_qs, u"A|2009-03-05"_qs}));
    Cabecalho(0); // the direction is remembered: descending again
    QCOMPARE(Grade(), QStringList({u"B|2010-01-20"_qs, u"A|2009-03-05"_qs}));
}

void tst_lista_grade::theCurrentRowStaysCurrentWhenSorted()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2010, 1, 20));
    Carrega();
    Clica_Item("lstLista", 0);
    Cabecalho(1);
    Cabecalho(1);
    QCOMPARE(Linha(), 1);
    Responde(1, "cmdEditar");
    QCOMPARE(Texto("txtNome"), u"B"_qs);
}

void tst_lista_grade::doubleClicksAndEnterInAnEmptyGridDoNothing()
{
    Carrega();
    QTest::mouseDClick(Acha<GradeListas>("lstLista")->viewport(), Qt::LeftButton);
    Tecla("lstLista", Qt::Key_Return);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(Visualizadores().size(), 0);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_grade::aDoubleClickBesideTheRowsDoesNothing()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    auto* area = Acha<GradeListas>("lstLista")->viewport();
    QTest::mouseDClick(area, Qt::LeftButton, {}, QPoint(20, area->height() - 4));
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(Identidade(), u"1"_qs);
}

void tst_lista_grade::enterOpensTheCurrentSetlistWithoutADialog()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2008, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Clica_Item("lstLista", 1);
    Tecla("lstLista", Qt::Key_Return);
    QCOMPARE(Visualizadores().size(), 1);
    const auto* visualizador = qobject_cast<frmVisualizar*>(Visualizadores().first());
    QVERIFY(visualizador->isVisible());
    QCOMPARE(visualizador->ID_Lista, 2.0);
    QCOMPARE(Identidade(), u"1"_qs); // unlike a double click
}

void tst_lista_grade::aHeldEnterOpensOneViewer()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Clica_Item("lstLista", 0);
    Segura_Enter("lstLista");
    QCOMPARE(Visualizadores().size(), 1);
}

void tst_lista_grade::tabMakesTheFirstRowCurrent()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Acha<QWidget>("cmdLimpar")->setFocus();
    Tecla("cmdLimpar", Qt::Key_Tab);
    QVERIFY(Acha<QWidget>("lstLista")->hasFocus());
    QCOMPARE(Linha(), 0);
    QVERIFY(Acha<GradeListas>("lstLista")->selectionModel()->hasSelection());
    Tecla("lstLista", Qt::Key_Enter);
    QCOMPARE(Visualizadores().size(), 1);
}

void tst_lista_grade::theMenuKeyAsksAsADoubleClickDoes()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    auto* area = Acha<GradeListas>("lstLista")->viewport();
    const auto pressiona = [area] {
        QContextMenuEvent tecla(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
        QApplication::sendEvent(area, &tecla);
    };
    pressiona(); // no row is current
    QVERIFY(!QApplication::activeModalWidget());
    Clica_Item("lstLista", 0);
    QTimer::singleShot(0, this, [] {
        auto* dialogo = QApplication::activeModalWidget();
        QVERIFY(dialogo);
        QTest::mouseClick(dialogo->findChild<QPushButton*>(u"cmdCopiar"_qs), Qt::LeftButton);
    });
    pressiona();
    QCOMPARE(Texto("txtNome"), u"Cópia de A"_qs);
}

void tst_lista_grade::theRightButtonAsksNothing()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    auto* grade = Acha<GradeListas>("lstLista");
    const QPoint lugar = Lugar(grade, 0);
    QTest::mouseClick(grade->viewport(), Qt::RightButton, {}, lugar);
    // The request for a menu that a desktop sends along with it.
    QContextMenuEvent menu(QContextMenuEvent::Mouse, lugar, grade->viewport()->mapToGlobal(lugar));
    bool perguntou = false;
    QTimer::singleShot(0, this, [&perguntou] {
        if (auto* dialogo = QApplication::activeModalWidget()) {
            perguntou = true;
            dialogo->close();
        }
    });
    QApplication::sendEvent(grade->viewport(), &menu);
    QCoreApplication::processEvents();
    QVERIFY(!perguntou);
    QCOMPARE(Identidade(), u"1"_qs);
}

void tst_lista_grade::abrirOpensAViewerOnTheSetlist()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2010, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdAbrir");
    QCOMPARE(Visualizadores().size(), 1);
    const auto* visualizador = qobject_cast<frmVisualizar*>(Visualizadores().first());
    QCOMPARE(visualizador->ID_Lista, 2.0);
    QVERIFY(visualizador->isVisible());
    QVERIFY(!visualizador->isModal());
    QVERIFY(!visualizador->parentWidget());
    // Every opening makes one more.
    m_form->activateWindow();
    Responde(0, "cmdAbrir");
    QCOMPARE(Visualizadores().size(), 2);
}

void tst_lista_grade::theDialogLooksAsGiven()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    Carrega();
    Na_Lista(0, [this](QWidget& dialogo) {
        QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
        QVERIFY(dialogo.isWindow());
        QVERIFY(dialogo.isModal());
        QCOMPARE(dialogo.windowTitle(), u"Titulo"_qs);
        QCOMPARE(dialogo.findChild<QLabel*>(u"Label2"_qs)->text(), u"O que deseja fazer?"_qs);
        QVERIFY(m_form->geometry().contains(dialogo.geometry()));
        QVERIFY(dialogo.findChild<QWidget*>(u"Image1"_qs)->isVisible());
        QStringList textos;
        int antes = -1;
        for (const char* nome :
             {"cmdAbrir", "cmdEditar", "cmdCopiar", "cmdExcluir", "cmdCancelar"}) {
            const auto* botao = dialogo.findChild<QPushButton*>(QLatin1String(nome));
            QVERIFY(botao->x() > antes);
            antes = botao->x();
            textos.append(botao->text());
        }
        QCOMPARE(textos, QStringList({u"&Abrir"_qs, u"&Editar"_qs, u"&Copiar"_qs, u"&Excluir"_qs,
                                      u"&Cancelar"_qs}));
        dialogo.close();
    });
}

void tst_lista_grade::escIsCancelar()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    Carrega();
    Na_Lista(0, [](QWidget& dialogo) { QTest::keyClick(&dialogo, Qt::Key_Escape); });
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 4);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_grade::closingTheDialogAnswersNothing()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    Carrega();
    Funcoes::Resposta_Mensagem = 3;
    Digita("txtNome", u"Minha"_qs);
    Na_Lista(0, [](QWidget& dialogo) { dialogo.close(); });
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
    QCOMPARE(Texto("txtNome"), u"Minha"_qs);
    QCOMPARE(Visualizadores().size(), 0);
}

void tst_lista_grade::enterPressesAbrir()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    Carrega();
    Na_Lista(0, [](QWidget& dialogo) { QTest::keyClick(&dialogo, Qt::Key_Return); });
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 1);
}

void tst_lista_grade::accessKeysAnswer_data()
{
    QTest::addColumn<QString>("keys"); // the letters one after the other, then Space
    QTest::addColumn<int>("answer");
    QTest::newRow("Alt+A") << u"A"_qs << 1;
    QTest::newRow("Alt+E, Space") << u"E "_qs << 2;
    QTest::newRow("Alt+C, Space") << u"C "_qs << 3;
    QTest::newRow("Alt+E twice, Space") << u"EE "_qs << 5;
    QTest::newRow("Alt+C twice, Space") << u"CC "_qs << 4;
}

void tst_lista_grade::accessKeysAnswer()
{
    QFETCH(QString, keys);
    QFETCH(int, answer);
    Carrega();
    frmMensagem2 dialogo(m_form.get());
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    QTRY_VERIFY(dialogo.focusWidget());
    for (const QChar tecla : keys) {
        if (tecla == u' ')
            QTest::keyClick(dialogo.focusWidget(), Qt::Key_Space);
        else
            QTest::keyClick(&dialogo, static_cast<Qt::Key>(tecla.unicode()), Qt::AltModifier);
    }
    // A letter of one button alone answers with the short animation of a press.
    QTRY_VERIFY(!dialogo.isVisible());
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, answer);
}

void tst_lista_grade::aSharedAccessKeyTakesTurns()
{
    Carrega();
    frmMensagem2 dialogo(m_form.get());
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    QTRY_VERIFY(dialogo.focusWidget());
    QStringList focos;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&dialogo, Qt::Key_E, Qt::AltModifier);
        focos.append(dialogo.focusWidget()->objectName());
    }
    QCOMPARE(focos, QStringList({u"cmdEditar"_qs, u"cmdExcluir"_qs, u"cmdEditar"_qs}));
    QVERIFY(dialogo.isVisible());
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
}

void tst_lista_grade::theDialogResetsTheIdentityBeforeItAnswers()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Identidade(), u"1"_qs);
    Na_Lista(0, [this](QWidget& dialogo) {
        QCOMPARE(Identidade(), u"0"_qs);
        dialogo.close();
    });
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
}

void tst_lista_grade::excluirIsNoChoiceWhileItAsks()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    Carrega();
    QList<int> respostas;
    m_caixas->whileOpen = [&] { respostas.append(Funcoes::Resposta_Mensagem); };
    m_caixas->answer = false;
    Responde(0, "cmdExcluir");
    QCOMPARE(Caixas(), QStringList({u"Deseja realmente excluir essa lista?"_qs}));
    QCOMPARE(respostas, QList<int>({4}));
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 4);
    m_caixas->answer = true;
    m_caixas->whileOpen = [&] {
        if (respostas.size() == 1)
            respostas.append(Funcoes::Resposta_Mensagem);
    };
    Responde(0, "cmdExcluir");
    QCOMPARE(respostas, QList<int>({4, 4}));
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 5);
}

void tst_lista_grade::aColumnMadeWiderKeepsItsShare()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    Carrega();
    auto* grade = Acha<GradeListas>("lstLista");
    const QHeaderView* cabecalho = grade->header();
    // Until somebody changes it, the date has the room that it needs.
    const int data = cabecalho->sectionSize(1);
    int largura = grade->viewport()->width();
    m_form->resize(m_form->width() + 200, m_form->height());
    QTRY_VERIFY(grade->viewport()->width() != largura);
    QCOMPARE(cabecalho->sectionSize(1), data);

    const QPoint borda(cabecalho->sectionSize(0) - 1, cabecalho->height() / 2);
    const int metade = grade->viewport()->width() / 2;
    QTest::mousePress(cabecalho->viewport(), Qt::LeftButton, {}, borda);
    QTest::mouseMove(cabecalho->viewport(), QPoint(metade, borda.y()));
    QTest::mouseRelease(cabecalho->viewport(), Qt::LeftButton, {}, QPoint(metade, borda.y()));
    QVERIFY(qAbs(cabecalho->sectionSize(0) - metade) < 8);
    const double parte = double(cabecalho->sectionSize(0)) / grade->viewport()->width();
    largura = grade->viewport()->width();
    m_form->resize(m_form->width() + 150, m_form->height());
    QTRY_VERIFY(grade->viewport()->width() != largura);
    QVERIFY(qAbs(cabecalho->sectionSize(0) - parte * grade->viewport()->width()) < 2);
}

void tst_lista_grade::sortingIgnoresItsErrors()
{
    m_catalogo->AddSetlist(u"A"_qs, QDate(2009, 3, 5));
    m_catalogo->AddSetlist(u"B"_qs, QDate(2008, 3, 5));
    Carrega();
    bool falhou = false;
    auto* grade = Acha<GradeListas>("lstLista");
    connect(grade->model(), &QAbstractItemModel::layoutAboutToBeChanged, this, [&] {
        falhou = true;
        throw std::runtime_error("no memory for another order");
    });
    Cabecalho(0);
    QVERIFY(falhou);
    QCOMPARE(Caixas(), QStringList());
    disconnect(grade->model(), nullptr, this, nullptr);
    QCOMPARE(Grade(), QStringList({u"A|2009-03-05"_qs, u"B|2008-03-05"_qs}));
}

void tst_lista_grade::datesWrittenInAnotherWay()
{
    m_catalogo->Run(u"INSERT INTO LISTA (NOME, DATA) VALUES ('com hora', '2009-03-05 10:20:30'),"
                    " ('lixo', 'amanhã'), ('vazia', '')"_qs);
    Carrega();
    QCOMPARE(Caixas(), QStringList());
    const QStringList linhas = Grade();
    QCOMPARE(linhas.size(), 3);
    QVERIFY(linhas.contains(u"com hora|2009-03-05"_qs));
    QVERIFY(linhas.contains(u"lixo|"_qs));
    QVERIFY(linhas.contains(u"vazia|"_qs));
    for (int i = 0; i < 3; ++i) {
        Responde(i, "cmdEditar");
        QCOMPARE(Caixas(), QStringList());
        QCOMPARE(Texto("txtData"),
                 Texto("txtNome") == u"com hora" ? u"05/03/2009"_qs : u"__/__/____"_qs);
    }
}

void tst_lista_grade::setlistsOfTheSameDay()
{
    for (const QString& nome : {u"C"_qs, u"A"_qs, u"B"_qs})
        m_catalogo->AddSetlist(nome, QDate(2009, 3, 5));
    Carrega();
    QStringList linhas = Grade();
    // Which of them comes first is nobody's concern, but each has its own songs and stays itself.
    linhas.sort();
    QCOMPARE(linhas, QStringList({u"A|2009-03-05"_qs, u"B|2009-03-05"_qs, u"C|2009-03-05"_qs}));
    for (int i = 0; i < 3; ++i) {
        Responde(i, "cmdEditar");
        QCOMPARE(Texto("txtNome") + u"|2009-03-05", Grade().at(i));
    }
}

void tst_lista_grade::setlistsOfTheSameNameKeepTheirOrder()
{
    constexpr int Semanas = 60;
    QStringList recentesPrimeiro;
    for (int i = 0; i < Semanas; ++i) {
        const QDate domingo = QDate(2009, 3, 1).addDays(qint64{7} * i);
        m_catalogo->AddSetlist(u"Missa"_qs, domingo);
        recentesPrimeiro.prepend(u"Missa|"_qs + domingo.toString(Qt::ISODate));
    }
    Carrega();
    QCOMPARE(Grade(), recentesPrimeiro);
    for (int i = 0; i < 2; ++i) {
        Cabecalho(0);
        QCOMPARE(Grade(), recentesPrimeiro);
    }
}

void tst_lista_grade::twoConversions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("prepared");
    QTest::addColumn<QString>("inverted");
    QTest::newRow("without zeros") << u"5/3/2009"_qs << u"05/03/2009"_qs << u"2009-03-05"_qs;
    QTest::newRow("with zeros") << u"05/03/2009"_qs << u"05/03/2009"_qs << u"2009-03-05"_qs;
    QTest::newRow("day before month") << u"12/11/2009"_qs << u"12/11/2009"_qs << u"2009-11-12"_qs;
    QTest::newRow("an early year") << u"1/2/999"_qs << u"01/02/0999"_qs << u"0999-02-01"_qs;
    QTest::newRow("no date at all") << u"//"_qs << u""_qs << u""_qs;
    QTest::newRow("empty") << u""_qs << u""_qs << u""_qs;
    QTest::newRow("month before day") << u"03/25/2009"_qs << u""_qs << u""_qs;
}

void tst_lista_grade::twoConversions()
{
    QFETCH(QString, text);
    QFETCH(QString, prepared);
    QFETCH(QString, inverted);
    QCOMPARE(Funcoes::Prepara_Data(text), prepared);
    QCOMPARE(Funcoes::Inverte_Data(text), inverted);
}

QTEST_MAIN(tst_lista_grade)
#include "tst_lista_grade.moc"
