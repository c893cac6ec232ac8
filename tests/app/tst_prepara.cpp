#include "app/Main.h"
#include "controls/Dialogs.h"

#include <QApplication>
#include <QFile>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace {

/// Has icons on the buttons of boxes wherever nobody says otherwise, as some desktops have.
class DesktopWithIcons : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, answer);
    }
};

/// Looks at the next modal box as soon as it is open, and closes it.
void WithNextBox(const std::function<void(const QDialog&)>& look)
{
    QTimer::singleShot(0, [look] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(box);
        look(*box);
        box->reject();
    });
}

QStringList Buttons(const QDialog& box)
{
    QStringList texts;
    for (const QPushButton* button : box.findChildren<QPushButton*>()) {
        if (button->isVisible())
            texts << button->text() + (button->icon().isNull() ? u""_qs : u" with an icon"_qs);
    }
    texts.sort();
    return texts;
}

} // namespace

/// What the start gives to everything that is shown later.
class tst_Prepara : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        Funcoes::Prepara(*qApp);
        QApplication::setStyle(new DesktopWithIcons(u"Fusion"_qs));
    }

    void theProgramHasItsName();
    void desktopsFindTheIconByTheMenuEntry();
    void boxesAnswerInPortugueseWithoutIcons();
    void theCommandLineIsOnePath_data();
    void theCommandLineIsOnePath();
};

void tst_Prepara::theProgramHasItsName()
{
    QCOMPARE(QApplication::applicationName(), u"Melodario"_qs);
    QCOMPARE(QLocale().name(), u"pt_BR"_qs);
    QVERIFY(!QApplication::windowIcon().isNull());
}

void tst_Prepara::desktopsFindTheIconByTheMenuEntry()
{
    const QString entry = u"/packaging/desktop/%1.desktop"_qs.arg(QApplication::desktopFileName());
    QVERIFY2(QFile::exists(QStringLiteral(MELODARIO_SOURCE_DIR) + entry), qPrintable(entry));
}

void tst_Prepara::boxesAnswerInPortugueseWithoutIcons()
{
    QStringList message;
    QStringList question;
    QStringList input;
    WithNextBox([&](const QDialog& box) { message = Buttons(box); });
    Funcoes::Mostra_Mensagem(nullptr, u"Olá"_qs, Icone::Informacao);
    WithNextBox([&](const QDialog& box) { question = Buttons(box); });
    Funcoes::Pergunta(nullptr, u"Deseja?"_qs);
    WithNextBox([&](const QDialog& box) { input = Buttons(box); });
    Funcoes::Caixa_Entrada(nullptr, u"Nome"_qs, u"Tema"_qs, {});
    QCOMPARE(message, QStringList({u"OK"_qs}));
    QCOMPARE(question, QStringList({u"&Não"_qs, u"&Sim"_qs}));
    QCOMPARE(input, QStringList({u"Cancelar"_qs, u"OK"_qs}));
}

void tst_Prepara::theCommandLineIsOnePath_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QStringList() << QString();
    QTest::newRow("one") << QStringList({u"/a/b.mld"_qs}) << u"/a/b.mld"_qs;
    QTest::newRow("blanks inside") << QStringList({u"/a/b c.mld"_qs}) << u"/a/b c.mld"_qs;
    QTest::newRow("two") << QStringList({u"/a/b"_qs, u"c.mld"_qs}) << u"/a/b c.mld"_qs;
    QTest::newRow("double quotes inside") << QStringList({u"a \"b\" c"_qs}) << u"a b c"_qs;
    QTest::newRow("double quotes over two")
        << QStringList({u"\"/a/b"_qs, u"c.mld\""_qs}) << u"/a/b c.mld"_qs;
    QTest::newRow("nothing but quotes") << QStringList({u"\"\""_qs}) << QString();
    QTest::newRow("an apostrophe stays") << QStringList({u"d'água.mld"_qs}) << u"d'água.mld"_qs;
}

void tst_Prepara::theCommandLineIsOnePath()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, path);
    QCOMPARE(Funcoes::Linha_Comando(QStringList({u"/x/melodario"_qs}) + arguments), path);
}

QTEST_MAIN(tst_Prepara)
#include "tst_prepara.moc"
