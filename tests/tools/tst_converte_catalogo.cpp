#include "jet/CatalogoAntigo.h"
#include "tools/ToolRun.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

// A catalogue in the older format on the command line.

namespace {

Outcome Convert(const QStringList& arguments, const QByteArray& input = {})
{
    return RunTool(QStringLiteral(MELODARIO_CONVERTE), arguments, input);
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

} // namespace

class tst_converte_catalogo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void anOldCatalogueBecomesANewOne();
    void theConvertedCatalogueCanBeExported();
    void simulationWritesNothingAndTellsAll();
    void existingDestinationIsKept();
    void anOldCatalogueCanComeThroughAPipe();
    void whatCannotBeConvertedLeavesNothing_data();
    void whatCannotBeConvertedLeavesNothing();
    void wrongUse_data();
    void wrongUse();
    void theSourceIsNeverReplaced();
    void simulationRefusesWhatTheRealRunRefuses();
    void whatAnInterruptedWriterLeftKeepsTheNewOneOut();
    void progressIsShownOnATerminalOnly();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QString Put(const QString& name, const QByteArray& content) const
    {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("not written");
        return file.fileName();
    }
    QStringList Files() const { return QDir(m_folder->path()).entryList(QDir::Files, QDir::Name); }

    const QString m_old = CatalogoAntigo::Caminho();
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_converte_catalogo::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_converte_catalogo::anOldCatalogueBecomesANewOne()
{
    const QString target = Path(u"novo.mdb"_qs);
    const Outcome outcome = Convert({m_old, target});
    QCOMPARE(outcome.err, m_old + u": ficou para trás: a tabela INTERPRETE; a coluna "
                                  u"MUSICA.FAVORITA\n");
    QCOMPARE(outcome.out, target + u": 59 música(s), 19 tema(s), 8 lista(s)\n");
    QCOMPARE(outcome.code, 1);
    QCOMPARE(CatalogoAntigo::Diferencas(target), QStringList());
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_converte_catalogo::theConvertedCatalogueCanBeExported()
{
    const QString target = Path(u"novo.mdb"_qs);
    QCOMPARE(Convert({m_old, target}).code, 1);
    const Outcome outcome = Convert({target, Path(u"tudo.mld"_qs)});
    QVERIFY2(outcome.code == 0 || outcome.code == 1, qPrintable(outcome.err));
    QVERIFY2(outcome.out.contains(u"59 música(s)"), qPrintable(outcome.out));
}

void tst_converte_catalogo::simulationWritesNothingAndTellsAll()
{
    const Outcome outcome = Convert({u"--simular"_qs, m_old, Path(u"novo.mdb"_qs)});
    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.err.contains(u"ficou para trás: a tabela INTERPRETE"));
    QVERIFY(outcome.out.endsWith(u"59 música(s), 19 tema(s), 8 lista(s) (simulação: nada foi "
                                 "escrito)\n"));
    QCOMPARE(Files(), QStringList());
}

void tst_converte_catalogo::existingDestinationIsKept()
{
    const QString target = Put(u"novo.mdb"_qs, "meu catálogo");
    const Outcome refused = Convert({m_old, target});
    QCOMPARE(refused.code, 2);
    QCOMPARE(refused.err, target + u": o arquivo já existe; --force o substitui\n");
    QCOMPARE(Content(target), QByteArray("meu catálogo"));
    QCOMPARE(Convert({u"--simular"_qs, u"--force"_qs, m_old, target}).code, 1);
    QCOMPARE(Content(target), QByteArray("meu catálogo"));
    QCOMPARE(Convert({u"--force"_qs, m_old, target}).code, 1);
    QCOMPARE(CatalogoAntigo::Diferencas(target), QStringList());
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_converte_catalogo::anOldCatalogueCanComeThroughAPipe()
{
    const QString target = Path(u"novo.mdb"_qs);
    const Outcome outcome = Convert({u"-"_qs, target}, CatalogoAntigo::Conteudo());
    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.err.startsWith(u"(entrada): ficou para trás: "));
    QCOMPARE(CatalogoAntigo::Diferencas(target), QStringList());
}

void tst_converte_catalogo::whatCannotBeConvertedLeavesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("words");
    const QByteArray whole = CatalogoAntigo::Conteudo();
    const QString foreign = u": não é um catálogo no formato antigo (Jet); só dele se faz um "
                            "catálogo novo\n"_qs;
    QTest::newRow("a text") << QByteArray("Só um texto\n") << foreign;
    QTest::newRow("a catalogue that is new already")
        << QByteArray("SQLite format 3\0", 16) + QByteArray(1000, '\0')
        << u": já é um catálogo no formato novo; não há o que converter\n"_qs;
    QTest::newRow("empty") << QByteArray() << foreign;
    QTest::newRow("half of it") << whole.first(whole.size() / 2) << u": não convertido: "_qs;
    QTest::newRow("nothing behind the name")
        << whole.first(4096) + QByteArray(whole.size() - 4096, '\0')
        << u": não convertido: O catálogo antigo está danificado. (a relação das tabelas não pode "
           "ser lida)\n"_qs;
    QTest::newRow("a table is missing")
        << CatalogoAntigo::SemTabela("LISTA_MUSICA")
        << u": não convertido: Falta no catálogo antigo a tabela LISTA_MUSICA.\n"_qs;
}

void tst_converte_catalogo::whatCannotBeConvertedLeavesNothing()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, words);
    const QString source = Put(u"antigo.mdb"_qs, content);
    const Outcome outcome = Convert({source, Path(u"novo.mdb"_qs)});
    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.err.startsWith(source + words), qPrintable(outcome.err));
    QCOMPARE(outcome.out, QString());
    QCOMPARE(Files(), QStringList{u"antigo.mdb"_qs});
    QVERIFY(Content(source) == content);
}

void tst_converte_catalogo::wrongUse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    const QString one = u"um catálogo novo (.mdb) se faz de um só catálogo antigo, inteiro"_qs;
    QTest::newRow("two sources") << QStringList{m_old, m_old, u"novo.mdb"_qs} << one;
    QTest::newRow("a part of it") << QStringList{u"--titulo"_qs, u"Mar"_qs, m_old, u"novo.mdb"_qs}
                                  << one;
    QTest::newRow("transposed") << QStringList{u"--tom"_qs, u"+2"_qs, m_old, u"novo.mdb"_qs} << one;
    QTest::newRow("onto the standard output")
        << QStringList{u"--formato"_qs, u"mdb"_qs, m_old, u"-"_qs}
        << u"--formato da saída padrão é "_qs;
    QTest::newRow("a missing source")
        << QStringList{u"nada.mdb"_qs, u"novo.mdb"_qs} << u"nada.mdb: o arquivo não existe\n"_qs;
    QTest::newRow("a folder as source")
        << QStringList{u"/"_qs, u"novo.mdb"_qs} << u"/: é uma pasta\n"_qs;
    QTest::newRow("a device as source") << QStringList{u"/dev/null"_qs, u"novo.mdb"_qs}
                                        << u"/dev/null: não é um arquivo comum\n"_qs;
    QTest::newRow("a source that cannot be read")
        << QStringList{u"/proc/self/mem"_qs, u"novo.mdb"_qs}
        << u"/proc/self/mem: o disco não entrega o conteúdo\n"_qs;
    QTest::newRow("into a folder that is not there")
        << QStringList{m_old, u"nada/novo.mdb"_qs} << m_old + u": não convertido: ";
}

void tst_converte_catalogo::wrongUse()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);
    const QByteArray before = CatalogoAntigo::Conteudo();
    const Outcome outcome = Convert(arguments);
    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.err.startsWith(words), qPrintable(outcome.err));
    QCOMPARE(outcome.out, QString());
    QVERIFY(!QFile::exists(u"novo.mdb"_qs));
    QVERIFY(CatalogoAntigo::Conteudo() == before);
}

void tst_converte_catalogo::theSourceIsNeverReplaced()
{
    const QString source = Put(u"antigo.mdb"_qs, CatalogoAntigo::Conteudo());
    const QString link = Path(u"atalho.mdb"_qs);
    QVERIFY(QFile::link(source, link));
    for (const QString& target : {source, link}) {
        for (const QStringList& options : {QStringList(), QStringList{u"--force"_qs}}) {
            const Outcome outcome = Convert(options + QStringList{source, target});
            QCOMPARE(outcome.code, 2);
            QCOMPARE(outcome.err, target + u": é uma das origens, e nenhuma origem é alterada\n");
            QVERIFY(Content(source) == CatalogoAntigo::Conteudo());
        }
    }
}

void tst_converte_catalogo::simulationRefusesWhatTheRealRunRefuses()
{
    const QString taken = Put(u"novo.mdb"_qs, "meu catálogo");
    const QString lost = Path(u"nada/novo.mdb"_qs);
    for (const QStringList& options : {QStringList{u"--simular"_qs}, QStringList()}) {
        const Outcome there = Convert(options + QStringList{m_old, taken});
        QCOMPARE(there.err, taken + u": o arquivo já existe; --force o substitui\n");
        QCOMPARE(there.code, 2);
        const Outcome nowhere = Convert(options + QStringList{m_old, lost});
        QCOMPARE(nowhere.err, m_old + u": não convertido: " + lost +
                                  u": não foi possível escrever: a pasta não existe\n");
        QCOMPARE(nowhere.code, 2);
    }
    QCOMPARE(Files(), QStringList{u"novo.mdb"_qs});
}

void tst_converte_catalogo::whatAnInterruptedWriterLeftKeepsTheNewOneOut()
{
    const QString left = Put(u"novo.mdb-journal"_qs, "left");
    for (const QString& option : {u"--force"_qs, u"--simular"_qs}) {
        const Outcome outcome = Convert({option, m_old, Path(u"novo.mdb"_qs)});
        QCOMPARE(outcome.code, 2);
        QVERIFY2(outcome.err.contains(
                     QString(u"O arquivo “"_qs + left + u"” é de uma gravação interrompida")),
                 qPrintable(outcome.err));
        QCOMPARE(outcome.err.count(u'\n'), 1);
        QCOMPARE(Files(), QStringList{u"novo.mdb-journal"_qs});
    }
}

void tst_converte_catalogo::progressIsShownOnATerminalOnly()
{
    const QString command =
        QStringLiteral(MELODARIO_CONVERTE) + u' ' + m_old + u' ' + Path(u"novo.mdb"_qs);
    const Outcome terminal = RunTool(u"script"_qs, {u"-qec"_qs, command, u"/dev/null"_qs});
    QCOMPARE(terminal.code, 1);
    QVERIFY2(terminal.out.contains(u"100 %"), qPrintable(terminal.out));
    const Outcome piped = Convert({u"--force"_qs, m_old, Path(u"novo.mdb"_qs)});
    QVERIFY(!piped.err.contains(u'%'));
}

QTEST_GUILESS_MAIN(tst_converte_catalogo)
#include "tst_converte_catalogo.moc"
