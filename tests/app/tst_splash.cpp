#include "app/frmSplash.h"
#include "controls/Appearance.h"
#include "controls/RecordingDialogs.h"
#include "main/Conecta_Banco.h"
#include "runtime/RuntimeError.h"
#include "runtime/Version.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

namespace {

/// Stands for the main form: counts how often it is shown.
class Principal : public QWidget
{
public:
    int shown = 0;

protected:
    void showEvent(QShowEvent*) override { ++shown; }
};

} // namespace

class tst_Splash : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init();
    void cleanup();

    void theMainFormIsLoadedHiddenBeforeTheSplashIsPainted();
    void theClockStartsAfterTheLoading();
    void theVersionLineHasThreeParts();
    void itShowsItsTexts();
    void itStandsInTheMiddleWithoutAFrame();
    void theFirstTickShowsTheMainForm();
    void theTimerDoesNotFireAfterAnEarlierDismissal();
    void anyKeyDismissesIt_data();
    void anyKeyDismissesIt();
    void aClickDismissesIt_data();
    void aClickDismissesIt();
    void anotherMouseButtonDoesNotDismissIt();
    void aSecondDismissalDoesNothing();
    void closedFromOutsideItShowsTheMainForm();
    void aFailingLoadIsToldAndTheSplashStillComes();
    void theEndOfTheProgramPasses();

private:
    void Start();
    QTimer* Clock() const { return m_splash->findChild<QTimer*>(u"Timer1"_qs); }
    QString Caption(const char* label) const
    {
        return m_splash->findChild<QLabel*>(QString::fromLatin1(label))->text();
    }

    std::unique_ptr<Principal> m_principal;
    QPointer<frmSplash> m_splash;
    std::function<void()> m_load;
};

void tst_Splash::init()
{
    m_load = [] {};
    m_principal = std::make_unique<Principal>();
    m_splash = new frmSplash(*m_principal, [this] { m_load(); });
}

void tst_Splash::cleanup()
{
    delete m_splash;
    m_principal.reset();
}

void tst_Splash::Start()
{
    m_splash->Form_Load();
    m_splash->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_splash));
    QVERIFY(m_splash->isVisible());
    QVERIFY(!m_principal->isVisible());
}

void tst_Splash::theMainFormIsLoadedHiddenBeforeTheSplashIsPainted()
{
    int loads = 0;
    m_principal->show();
    m_load = [&] {
        ++loads;
        QVERIFY(!m_principal->isVisible());
        QVERIFY(!m_splash->isVisible());
        QCOMPARE(Caption("lblVersion"), QString(u"Versão " + Version::ToText()));
    };
    Start();
    QCOMPARE(loads, 1);
}

void tst_Splash::theClockStartsAfterTheLoading()
{
    m_load = [&] { QVERIFY(!Clock()->isActive()); };
    m_splash->Form_Load();
    QVERIFY(Clock()->isActive());
    QCOMPARE(Clock()->interval(), 2500);
}

void tst_Splash::theVersionLineHasThreeParts()
{
    m_splash->Form_Load();
    const QString line = Caption("lblVersion");
    static const QRegularExpression threeParts(u"^Versão \\d+\\.\\d+\\.\\d+$"_qs);
    QVERIFY2(threeParts.match(line).hasMatch(), qPrintable(line));
    QCOMPARE(line, QString(u"Versão " + Version::ToText()));
}

void tst_Splash::itShowsItsTexts()
{
    Start();
    QCOMPARE(Caption("lblProductName"), u"Melodario"_qs);
    QVERIFY(!Caption("lblCompanyProduct").isEmpty());
    QVERIFY(!Caption("lblWarning").isEmpty());
    const auto labels = m_splash->findChildren<QLabel*>();
    QCOMPARE(labels.size(), 5);
    for (const QLabel* label : labels) {
        QVERIFY2(label->isVisible(), qPrintable(label->objectName()));
        QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
        QVERIFY2(label->height() >= label->sizeHint().height(), qPrintable(label->text()));
    }
    QVERIFY(!m_splash->findChild<QLabel*>(u"imgLogo"_qs)->pixmap().isNull());
}

void tst_Splash::itStandsInTheMiddleWithoutAFrame()
{
    Start();
    QCOMPARE(m_splash->objectName(), u"frmSplash"_qs);
    QVERIFY(m_splash->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(m_splash->isWindow() && !m_splash->isModal());
    QCOMPARE(m_splash->geometry().center(), m_splash->screen()->availableGeometry().center());
    QCOMPARE(m_splash->findChild<QFrame*>(u"Frame1"_qs)->geometry(), m_splash->rect());
}

void tst_Splash::theFirstTickShowsTheMainForm()
{
    QElapsedTimer time;
    time.start();
    Start();
    QTRY_VERIFY_WITH_TIMEOUT(m_principal->isVisible(), 10000);
    QVERIFY(time.elapsed() >= 2400);
    QTRY_VERIFY(!m_splash);
}

void tst_Splash::theTimerDoesNotFireAfterAnEarlierDismissal()
{
    Start();
    QTest::keyClick(m_splash.data(), Qt::Key_M);
    QVERIFY(m_principal->isVisible());
    m_principal->hide();
    QTest::qWait(2700); // beyond the tick that must not come
    QCOMPARE(m_principal->shown, 1);
    QVERIFY(!m_principal->isVisible());
}

void tst_Splash::anyKeyDismissesIt_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("a letter") << int(Qt::Key_M);
    QTest::newRow("Space") << int(Qt::Key_Space);
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Esc") << int(Qt::Key_Escape);
    QTest::newRow("Tab") << int(Qt::Key_Tab);
    QTest::newRow("F1") << int(Qt::Key_F1);
    QTest::newRow("an arrow") << int(Qt::Key_Down);
}

void tst_Splash::anyKeyDismissesIt()
{
    QFETCH(int, key);
    Start();
    QTest::keyPress(m_splash.data(), static_cast<Qt::Key>(key));
    QVERIFY(m_principal->isVisible());
    QTRY_VERIFY(!m_splash);
}

void tst_Splash::aClickDismissesIt_data()
{
    QTest::addColumn<QString>("control");
    for (const auto* const name :
         {"Frame1", "imgLogo", "lblProductName", "lblCompanyProduct", "lblVersion", "lblWarning"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_Splash::aClickDismissesIt()
{
    QFETCH(QString, control);
    Start();
    auto* widget = m_splash->findChild<QWidget*>(control);
    QVERIFY(widget);
    const QPoint place = control == u"Frame1" ? QPoint(5, 5) : widget->rect().center();
    QTest::mousePress(widget, Qt::LeftButton, {}, place);
    QVERIFY(!m_principal->isVisible());
    QTest::mouseRelease(widget, Qt::LeftButton, {}, place);
    QVERIFY(m_principal->isVisible());
    QTRY_VERIFY(!m_splash);
}

void tst_Splash::anotherMouseButtonDoesNotDismissIt()
{
    Start();
    QTest::mouseClick(m_splash->findChild<QWidget*>(u"Frame1"_qs), Qt::RightButton);
    QVERIFY(!m_principal->isVisible());
    QVERIFY(m_splash && m_splash->isVisible());
}

void tst_Splash::aSecondDismissalDoesNothing()
{
    Start();
    QTimer* clock = Clock();
    m_splash->Inicializar();
    QVERIFY(!clock->isActive());
    m_principal->hide();
    m_splash->Inicializar();
    QVERIFY(!m_principal->isVisible());
}

void tst_Splash::closedFromOutsideItShowsTheMainForm()
{
    Start();
    m_splash->close();
    QVERIFY(m_principal->isVisible());
    QTRY_VERIFY(!m_splash);
}

void tst_Splash::aFailingLoadIsToldAndTheSplashStillComes()
{
    RecordingDialogs dialogs;
    m_load = [] { throw RuntimeError(RuntimeError::StoreFailure, u"Não deu."_qs, u"motivo"_qs); };
    Start();
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].text, u"Não deu.\n\nmotivo"_qs);
    QCOMPARE(dialogs.boxes[0].icon, Icone::Critico);
    QVERIFY(Clock()->isActive());
}

void tst_Splash::theEndOfTheProgramPasses()
{
    m_load = [] { throw Fim_Programa(); };
    QVERIFY_THROWS_EXCEPTION(Fim_Programa, m_splash->Form_Load());
    QVERIFY(!Clock()->isActive());
    QVERIFY(!m_splash->isVisible());
    QCOMPARE(m_principal->shown, 0);
}

QTEST_MAIN(tst_Splash)
#include "tst_splash.moc"
