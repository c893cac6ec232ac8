// Every screen, one after the other, under the rules for those who hear the program or do not see
// it well: on a light desktop and on a dark one.

#include "acesso/Contraste.h"
#include "acesso/MaisTelas.h"
#include "acesso/Regras.h"
#include "acesso/TelasRuins.h"
#include "app/Main.h"
#include "pictures/TelasCatalogoAntigo.h"
#include "pictures/TelasImportacao.h"
#include "pictures/TodasAsTelas.h"

#include <QAccessible>
#include <QMenuBar>
#include <QSet>
#include <QTemporaryDir>

using namespace Telas;

namespace {

/// Looks at each screen instead of taking its picture.
class Fiscal final : public Pictures
{
public:
    Fiscal()
        : Pictures(QString())
    {
    }

    void Save(const QString& name) override
    {
        QTest::qWait(PaintMs);
        ++telas;
        for (QWidget* janela : Vistas()) {
            QStringList defeitos = Regras::Nomes(*janela);
            defeitos += Regras::Papeis(*janela);
            defeitos += Regras::Rotulos(*janela);
            defeitos += Regras::Ordem(*janela);
            defeitos += Regras::Contrastes(*janela);
            defeitos += Regras::Folhas(*janela);
            defeitos += Regras::Focos(*janela, vistos);
            for (const QString& defeito : defeitos)
                Anota(name, janela->objectName() + u": "_qs + defeito);
        }
    }

    QSet<QString> vistos;  ///< the controls that have had the focus
    QStringList relatorio; ///< each defect once, with the first screen that shows it
    int telas = 0;

private:
    /// @return what the user sees in front: the box that is open, a list rolled down, the form
    static QList<QWidget*> Vistas()
    {
        if (QWidget* lista = QApplication::activePopupWidget())
            return {lista};
        if (QWidget* caixa = QApplication::activeModalWidget())
            return {caixa};
        QList<QWidget*> janelas;
        const auto todas = QApplication::topLevelWidgets();
        for (QWidget* janela : todas) {
            if (janela->isVisible() && janela->windowType() != Qt::ToolTip)
                janelas.append(janela);
        }
        return janelas;
    }

    void Anota(const QString& tela, const QString& defeito)
    {
        if (m_ditos.contains(defeito))
            return;
        m_ditos.insert(defeito);
        relatorio.append(tela + u": "_qs + defeito);
    }

    QSet<QString> m_ditos;
};

QPalette DarkDesktop()
{
    return QPalette(Qt::white, QColor(40, 40, 40), Qt::gray, Qt::black, Qt::darkGray, Qt::white,
                    Qt::white, QColor(20, 20, 20), QColor(30, 30, 30));
}

} // namespace

class tst_acesso : public QObject
{
    Q_OBJECT

private slots:
    void a_rule_finds_what_breaks_it_data();
    void a_rule_finds_what_breaks_it();
    void every_screen_keeps_the_rules_data();
    void every_screen_keeps_the_rules();
    void the_menu_bar_shows_where_the_keys_are();
};

using Regra = QStringList (*)(QWidget&);
using Tela = void (*)(QWidget&);
Q_DECLARE_METATYPE(Regra)
Q_DECLARE_METATYPE(Tela)

void tst_acesso::a_rule_finds_what_breaks_it_data()
{
    QTest::addColumn<Regra>("rule");
    QTest::addColumn<Tela>("build");
    QTest::addColumn<QString>("finding");
    const Regra focos = [](QWidget& janela) {
        QSet<QString> vistos;
        return Regras::Focos(janela, vistos);
    };
    const auto row = [](const char* name, Regra rule, Tela build, const QString& finding) {
        QTest::newRow(name) << rule << build << finding;
    };
    row("a control without a name", Regras::Nomes, TelasRuins::SemNome, u"no accessible name"_qs);
    row("a control that is a frame", Regras::Papeis, TelasRuins::SemPapel, u"no control"_qs);
    row("a label without a field", Regras::Rotulos, TelasRuins::RotuloSemCampo,
        u"label without a field"_qs);
    row("a field without a label", Regras::Rotulos, TelasRuins::CampoSemRotulo,
        u"field without a label"_qs);
    row("the lower one first", Regras::Ordem, TelasRuins::OrdemErrada, u"stands before"_qs);
    row("a grey text", Regras::Contrastes, TelasRuins::TextoApagado, u"contrast of"_qs);
    row("a dark sheet", Regras::Folhas, TelasRuins::FolhaEscura, u"is a sheet on"_qs);
    row("pale text on a sheet", Regras::Folhas, TelasRuins::FolhaPalida,
        u"a sheet without dark text"_qs);
    row("a focus that nobody sees", focos, TelasRuins::FocoInvisivel, u"shows the focus in"_qs);
}

void tst_acesso::a_rule_finds_what_breaks_it()
{
    QFETCH(Regra, rule);
    QFETCH(Tela, build);
    QFETCH(QString, finding);
    QDialog janela;
    janela.setWindowTitle(u"Ruim"_qs);
    janela.resize(300, 200);
    build(janela);
    janela.show();
    QVERIFY(QTest::qWaitForWindowActive(&janela));
    const QStringList defeitos = rule(janela);
    QCOMPARE(defeitos.size(), 1);
    QVERIFY2(defeitos[0].contains(finding), qPrintable(defeitos[0]));
}

void tst_acesso::every_screen_keeps_the_rules_data()
{
    QTest::addColumn<QPalette>("desktop");
    QTest::newRow("a light desktop") << QPalette(QColor(239, 239, 239));
    QTest::newRow("a dark desktop") << DarkDesktop();
}

void tst_acesso::every_screen_keeps_the_rules()
{
    QFETCH(QPalette, desktop);
    QApplication::setPalette(desktop);
    Funcoes::Prepara(*qApp);

    const QTemporaryDir folder;
    const QString first = folder.filePath(u"a.mdb"_qs);
    const QString second = folder.filePath(u"b.mdb"_qs);
    for (const QString& copy : {first, second})
        QVERIFY(QFile::copy(QStringLiteral(MELODARIO_CATALOGUE), copy));
    Fiscal fiscal;
    ShowDelivered(fiscal, first);
    ShowTheRest(fiscal, second);
    const auto look = [&fiscal](const QString& name) { fiscal.Save(name); };
    ShowImport(look);
    ShowOldCatalogue(look);
    for (const QString& defeito : fiscal.relatorio)
        qWarning("%s", qUtf8Printable(defeito));
    QCOMPARE(fiscal.relatorio.size(), 0);
    QVERIFY2(fiscal.telas > 60, qPrintable(QString::number(fiscal.telas)));
}

void tst_acesso::the_menu_bar_shows_where_the_keys_are()
{
    Funcoes::Prepara(*qApp);
    const QTemporaryDir folder;
    const QString catalogue = folder.filePath(u"Melodario.mdb"_qs);
    QVERIFY(QFile::copy(QStringLiteral(MELODARIO_CATALOGUE), catalogue));
    Principal form(catalogue);
    form.Form_Load(QString());
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    const auto look = [&form] {
        return form.menuBar()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    QImage before = look();
    for (const auto key : {Qt::Key_F10, Qt::Key_Right, Qt::Key_Right}) {
        QTest::keyClick(QApplication::focusWidget(), key);
        const QImage after = look();
        QVERIFY(form.menuBar()->hasFocus());
        QVERIFY2(Contraste::Marcados(before, after) > 80,
                 qPrintable(QString::number(Contraste::Marcados(before, after))));
        before = after;
    }
    form.close();
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setCursorFlashTime(0);
    QAccessible::setActive(true);
    PaintMs = 30;
    CountdownMs = 0; // no text and no rule knows one second from another
    tst_acesso test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_acesso.moc"
