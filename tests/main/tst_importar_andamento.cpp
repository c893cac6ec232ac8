#include "ImportarTeste.h"

#include <QDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>

namespace {

constexpr int MuitasMusicas = 300;
constexpr int DemoraMs = 5; // of each song: many of them take longer than anybody likes to wait

/// Notes at what values a bar is painted.
class Pinturas final : public QObject
{
public:
    explicit Pinturas(QProgressBar& barra)
        : QObject(&barra)
        , m_barra(&barra)
    {
        barra.installEventFilter(this);
    }

    QList<int> valores;

protected:
    bool eventFilter(QObject*, QEvent* evento) override
    {
        if (evento->type() == QEvent::Paint &&
            (valores.isEmpty() || valores.last() != m_barra->value()))
            valores.append(m_barra->value());
        return false;
    }

private:
    QProgressBar* m_barra;
};

} // namespace

/// An import that takes its time: what is seen of it, and what cannot disturb it.
class tst_importar_andamento : public ImportarTeste
{
    Q_OBJECT

private slots:
    void aLongImportShowsHowFarItIs();
    void aShortImportShowsNothing();
    void itCannotBeClosedAndHasNoButton_data();
    void itCannotBeClosedAndHasNoButton();
    void aQuestionStandsAloneAndCanBeAnswered_data();
    void aQuestionStandsAloneAndCanBeAnswered();
    void theWindowComesBackAfterAQuestion();
    void theFocusStaysWhereItWas();
    void keysMeantForNothingDoNothing();
    void theMainFormClosedMeanwhileEndsTheImport();
    void aSecondImportMeanwhileDoesNothing();
    void theSearchThatWaitsWaitsForTheImport();

private:
    static QDialog* Janela()
    {
        const QWidgetList janelas = QApplication::topLevelWidgets();
        for (QWidget* janela : janelas) {
            if (janela->objectName() == u"Andamento" && janela->isVisible())
                return qobject_cast<QDialog*>(janela);
        }
        return nullptr;
    }
    static QMessageBox* Caixa()
    {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }

    QString Muitas(int quantas = MuitasMusicas, int iguais = -1) const
    {
        QString musicas;
        for (int i = 0; i < quantas; ++i)
            musicas +=
                Musica_Xml(i == iguais ? u"Mar"_qs : u"Canto %1"_qs.arg(i), Tema_Xml(u"Louvor"_qs));
        return Arquivo(musicas);
    }

    /// Makes each song take a while.
    void Demora()
    {
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) {
            m_comandos.append(sql);
            if (sql.startsWith(u"INSERT INTO MUSICA "))
                QThread::msleep(DemoraMs);
        });
    }

    /// Does something as often as events run while the window stands open.
    QTimer* Enquanto_Aberta(const std::function<void(QDialog&)>& age)
    {
        auto* relogio = new QTimer(m_form.get());
        QObject::connect(relogio, &QTimer::timeout, relogio, [age] {
            if (QDialog* janela = Janela())
                age(*janela);
        });
        relogio->start(0);
        return relogio;
    }

    QString Quantas() const { return Um(u"SELECT count(*) FROM MUSICA"_qs); }
};

void tst_importar_andamento::aLongImportShowsHowFarItIs()
{
    Carrega_Importar();
    Demora();
    QPointer<Pinturas> pinturas;
    QList<int> valores;
    Qt::WindowModality modo = Qt::NonModal;
    QString titulo;
    Enquanto_Aberta([&](QDialog& janela) {
        if (!pinturas)
            pinturas = new Pinturas(*janela.findChild<QProgressBar*>());
        valores = pinturas->valores;
        modo = janela.windowModality();
        titulo = janela.windowTitle();
    });
    Importa(Muitas());
    QCOMPARE(titulo, u"Importar..."_qs);
    QCOMPARE(modo, Qt::ApplicationModal);
    QVERIFY2(valores.size() > 5, qPrintable(QString::number(valores.size())));
    QVERIFY(std::is_sorted(valores.begin(), valores.end()));
    QVERIFY(!Janela());
    QCOMPARE(Caixas(), QStringList(u"i 300 música(s) importada(s) com sucesso!"_qs));
}

void tst_importar_andamento::aShortImportShowsNothing()
{
    Carrega_Importar();
    int vezes = 0;
    Enquanto_Aberta([&](QDialog&) { ++vezes; });
    Importa(Muitas(3));
    QTest::qWait(800);
    QCOMPARE(vezes, 0);
}

void tst_importar_andamento::itCannotBeClosedAndHasNoButton_data()
{
    QTest::addColumn<int>("tecla"); // 0: its title bar
    QTest::newRow("Esc") << int{Qt::Key_Escape};
    QTest::newRow("Enter") << int{Qt::Key_Return};
    QTest::newRow("Space") << int{Qt::Key_Space};
    QTest::newRow("title bar") << 0;
}

void tst_importar_andamento::itCannotBeClosedAndHasNoButton()
{
    QFETCH(int, tecla);
    Carrega_Importar();
    Demora();
    int vezes = 0;
    int botoes = 0;
    bool aberta = true;
    Enquanto_Aberta([&](QDialog& janela) {
        ++vezes;
        botoes += static_cast<int>(janela.findChildren<QAbstractButton*>().size());
        if (tecla == 0)
            janela.close();
        else
            QTest::keyClick(&janela, static_cast<Qt::Key>(tecla));
        aberta = aberta && janela.isVisible();
    });
    Importa(Muitas());
    QVERIFY(vezes > 5);
    QVERIFY(aberta);
    QCOMPARE(botoes, 0);
    QCOMPARE(Caixas(), QStringList(u"i 300 música(s) importada(s) com sucesso!"_qs));
    QCOMPARE(Quantas(), u"300"_qs);
}

void tst_importar_andamento::aQuestionStandsAloneAndCanBeAnswered_data()
{
    QTest::addColumn<int>("igual");
    QTest::newRow("before the window was shown") << 0;
    QTest::newRow("after the window was shown") << 250;
}

void tst_importar_andamento::aQuestionStandsAloneAndCanBeAnswered()
{
    QFETCH(int, igual);
    Musica(u"Mar"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    Demora();
    m_caixas.reset(); // real ones
    int perguntas = 0;
    int sozinha = 0;
    QStringList textos;
    QTimer relogio;
    QObject::connect(&relogio, &QTimer::timeout, &relogio, [&] {
        QMessageBox* caixa = Caixa();
        // A window above the box keeps it from being the active one: then nobody can answer.
        if (!caixa || textos.value(textos.size() - 1) == caixa->text())
            return;
        textos.append(caixa->text());
        // Somebody who thinks about it for a while.
        QTimer::singleShot(1000, caixa, [&, caixa] {
            perguntas += caixa->button(QMessageBox::Yes) ? 1 : 0;
            sozinha += Caixa() == caixa && !Janela() ? 1 : 0;
            QTest::mouseClick(caixa->defaultButton() ? caixa->defaultButton()
                                                     : caixa->button(QMessageBox::Ok),
                              Qt::LeftButton);
        });
    });
    relogio.start(10);
    // Whoever cannot reach the box must not wait for ever: the test fails instead.
    QTimer::singleShot(20000, m_form.get(), [] {
        if (auto* caixa = Caixa())
            caixa->done(QMessageBox::No);
        else if (auto* janela = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            janela->done(0);
    });
    Importa(Muitas(MuitasMusicas, igual));
    QCOMPARE(textos.size(), 2);
    QCOMPARE(perguntas, 1);
    QCOMPARE(sozinha, 2);
    QCOMPARE(textos.last(), u"300 música(s) importada(s) com sucesso!"_qs);
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA WHERE TITULO = 'Mar (Importação)'"_qs), u"1"_qs);
}

void tst_importar_andamento::theWindowComesBackAfterAQuestion()
{
    Musica(u"Mar"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    Demora();
    int antes = 0;
    int depois = 0;
    Enquanto_Aberta([&](QDialog&) { ++(m_caixas->boxes.isEmpty() ? antes : depois); });
    Importa(Muitas(2 * MuitasMusicas, MuitasMusicas));
    QVERIFY(antes > 0);
    QVERIFY(depois > 0);
}

void tst_importar_andamento::theFocusStaysWhereItWas()
{
    Carrega_Importar();
    Demora();
    QWidget* titulo = Acha<QWidget>("txtTitulo");
    titulo->setFocus();
    int vezes = 0;
    bool pede = false;
    Enquanto_Aberta([&](QDialog& janela) {
        ++vezes;
        pede = pede || !janela.testAttribute(Qt::WA_ShowWithoutActivating);
    });
    Importa(Muitas());
    QVERIFY(vezes > 0);
    QVERIFY(!pede);
    // This platform has no window manager that gives the keyboard back to the form.
    m_form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    QCOMPARE(QApplication::focusWidget(), titulo);
    QTest::keyClicks(QApplication::focusWidget(), u"ab"_qs);
    QCOMPARE(Acha<QLineEdit>("txtTitulo")->text(), u"ab"_qs);
}

void tst_importar_andamento::keysMeantForNothingDoNothing()
{
    Musica(u"Mar"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    Demora();
    bool enviada = false;
    Enquanto_Aberta([&](QDialog& janela) {
        // The window system gives it to whoever has the keyboard.
        if (!std::exchange(enviada, true))
            QTest::keyClick(janela.windowHandle(), Qt::Key_Return);
    });
    Importa(Muitas());
    QVERIFY(enviada);
    QCOMPARE(Caixas(), QStringList(u"i 300 música(s) importada(s) com sucesso!"_qs));
}

void tst_importar_andamento::theMainFormClosedMeanwhileEndsTheImport()
{
    Carrega_Importar();
    Demora();
    const QPointer<QTimer> relogio = Enquanto_Aberta([&](QDialog&) { m_form->close(); });
    Importa(Muitas());
    QVERIFY(!Janela());
    QCOMPARE(Caixas(), QStringList());
    const int quantas = Quantas().toInt();
    QVERIFY(quantas > 0 && quantas < MuitasMusicas);
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA_MUSICA"_qs).toInt(), quantas);
}

void tst_importar_andamento::aSecondImportMeanwhileDoesNothing()
{
    Carrega_Importar();
    Demora();
    const QString outro = Arquivo(Musica_Xml(u"Outra"_qs, QString()), u"b.mld"_qs);
    int vezes = 0;
    Enquanto_Aberta([&](QDialog&) {
        if (vezes++ == 0)
            m_form->frmPrincipal::mnuImportar_Click();
    });
    const QString muitas = Muitas();
    RecordingFileDialogs escolhas;
    escolhas.chosen = {muitas, outro};
    m_form->frmPrincipal::mnuImportar_Click();
    QVERIFY(vezes > 0);
    QCOMPARE(escolhas.requests.size(), 1); // nobody is asked for a file that would be dropped
    QCOMPARE(Caixas(), QStringList(u"i 300 música(s) importada(s) com sucesso!"_qs));
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA WHERE TITULO = 'Outra'"_qs), u"0"_qs);
}

void tst_importar_andamento::theSearchThatWaitsWaitsForTheImport()
{
    Carrega_Importar();
    Demora();
    Acha<QLineEdit>("txtTitulo")->setText(u"Canto 1"_qs);
    QVERIFY(Acha<QTimer>("Timer1")->isActive());
    Importa(Muitas());
    QStringList depois;
    for (const QString& sql : m_comandos) {
        if (sql.startsWith(u"INSERT INTO MUSICA "))
            QVERIFY2(depois.isEmpty(), qPrintable(depois.join(u'\n')));
        else if (sql.startsWith(u"SELECT DISTINCT MUSICA.ID"))
            depois.append(sql);
    }
    QVERIFY(!depois.isEmpty());
    QTRY_VERIFY(!Acha<QTimer>("Timer1")->isActive());
    QTRY_COMPARE(Contagem(), u"111 Registro(s) Encontrado(s)."_qs);
}

QTEST_MAIN(tst_importar_andamento)
#include "tst_importar_andamento.moc"
