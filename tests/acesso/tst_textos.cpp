// Every text of the running program against one list: no text that is not in it, no line of it that
// nothing shows.

#include "acesso/ColetorTextos.h"
#include "acesso/ListaTextos.h"
#include "acesso/MaisTelas.h"
#include "app/Main.h"
#include "pictures/TelasCatalogoAntigo.h"
#include "pictures/TelasImportacao.h"
#include "pictures/TodasAsTelas.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Telas;

namespace {

const QString Pasta = u"" MELODARIO_SOURCE_DIR "/tests/"_qs;

QString Conteudo(const QString& caminho)
{
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::ReadOnly))
        qFatal("no file %s", qPrintable(caminho));
    return QString::fromUtf8(arquivo.readAll());
}

using Vistos = QMap<QPair<QString, QString>, QString>;

} // namespace

class tst_textos : public QObject
{
    Q_OBJECT

private slots:
    void the_list_finds_what_differs_data();
    void the_list_finds_what_differs();
    void every_text_is_in_the_list_and_every_line_is_shown();
    void other_tests_hold_the_texts_that_they_answer_for();
};

void tst_textos::the_list_finds_what_differs_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("text"); // of the control "a.texto"
    QTest::addColumn<QString>("finding");
    QTest::newRow("the same") << u"a.texto \"Título:\""_qs << u"Título:"_qs << QString();
    QTest::newRow("a missing accent") << u"a.texto \"Título:\""_qs << u"Titulo:"_qs
                                      << u"not in the list: a.texto \"Titulo:\" (tela)"_qs;
    QTest::newRow("one blank instead of two")
        << u"a.texto \"a  b\""_qs << u"a b"_qs << u"not in the list: a.texto \"a b\" (tela)"_qs;
    QTest::newRow("a blank at the end")
        << u"a.texto \"serão exportadas. \""_qs << u"serão exportadas."_qs
        << u"not in the list: a.texto \"serão exportadas.\" (tela)"_qs;
    QTest::newRow("in another control") << u"b.texto \"Nome:\""_qs << u"Nome:"_qs
                                        << u"not in the list: a.texto \"Nome:\" (tela)"_qs;
    QTest::newRow("never shown") << u"a.texto \"Nome:\"\nb.texto \"Data:\""_qs << u"Nome:"_qs
                                 << u"never shown: line 2, b.texto \"Data:\""_qs;
    QTest::newRow("a number") << u"a.texto \"{n} músicas\""_qs << u"12 músicas"_qs << QString();
    QTest::newRow("no number") << u"a.texto \"{n} músicas\""_qs << u"x músicas"_qs
                               << u"not in the list: a.texto \"x músicas\" (tela)"_qs;
    QTest::newRow("words before patterns")
        << u"a.texto \"{*}\"\na.texto \"Nenhuma\""_qs << u"Nenhuma"_qs
        << u"never shown: line 1, a.texto \"{*}\""_qs;
    QTest::newRow("a line end") << u"a.texto \"a\\r\\nb\""_qs << u"a\r\nb"_qs << QString();
    QTest::newRow("no quotation marks")
        << u"a.texto Nome\na.texto \"x\""_qs << u"x"_qs << u"line 1 cannot be read"_qs;
}

void tst_textos::the_list_finds_what_differs()
{
    QFETCH(QString, list);
    QFETCH(QString, text);
    QFETCH(QString, finding);
    const Vistos vistos{{{u"a.texto"_qs, text}, u"tela"_qs}};
    QCOMPARE(ListaTextos(list).Confere(vistos).value(0), finding);
}

void tst_textos::every_text_is_in_the_list_and_every_line_is_shown()
{
    Funcoes::Prepara(*qApp);
    const QTemporaryDir folder;
    ColetorTextos coletor;
    const auto copy = [&folder](const QString& name) {
        const QString path = folder.filePath(name);
        return QFile::copy(QStringLiteral(MELODARIO_CATALOGUE), path) ? path : QString();
    };
    const QString first = copy(u"a.mdb"_qs);
    const QString second = copy(u"b.mdb"_qs);
    QVERIFY(!first.isEmpty() && !second.isEmpty());
    ShowDelivered(coletor, first);
    ShowTheRest(coletor, second);
    const auto save = [&coletor](const QString& name) { coletor.Save(name); };
    ShowImport(save);
    ShowOldCatalogue(save);
    const QStringList erros =
        ListaTextos(Conteudo(Pasta + u"acesso/textos.txt"_qs)).Confere(coletor.vistos);
    for (const QString& erro : erros)
        qWarning("%s", qUtf8Printable(erro));
    QCOMPARE(erros.size(), 0);
}

void tst_textos::other_tests_hold_the_texts_that_they_answer_for()
{
    const auto linhas = ListaTextos(Conteudo(Pasta + u"acesso/textos.txt"_qs)).DeOutrosTestes();
    QVERIFY(!linhas.isEmpty());
    static const QRegularExpression juncao(u"\"(?:_qs|_s)?\\s*u?\""_qs);
    for (const ListaTextos::Linha& linha : linhas) {
        QString teste = Conteudo(Pasta + linha.titulo);
        teste.replace(juncao, QString()); // one text, written in two pieces
        QVERIFY2(teste.contains(linha.texto), qPrintable(linha.titulo + u": "_qs + linha.texto));
    }
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    PaintMs = 30;
    CountdownMs = 0; // no text and no rule knows one second from another
    tst_textos test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_textos.moc"
