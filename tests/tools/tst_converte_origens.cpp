#include "ToolRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <fstream>

// Where songs come from and where they may go, by the real program: nothing is dropped in silence,
// no source is touched, and a simulation promises what the real run keeps.

namespace {

const QByteArray PeixeVivo = "{title: Peixe Vivo}\n{key: G}\n[G]Como pode o [D7]peixe vivo\n";

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

/// @return what runs a command as somebody without special rights
QStringList AsOrdinaryUser()
{
    if (RunTool(u"id"_qs, {u"-u"_qs}).out.trimmed() != u"0")
        return {};
    return {u"setpriv"_qs, u"--reuid=65534"_qs, u"--regid=65534"_qs, u"--clear-groups"_qs};
}

} // namespace

class tst_converte_origens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void noSourceIsReplaced_data();
    void noSourceIsReplaced();
    void whatOfAFolderCannotBeReadIsTold();
    void aFolderWithoutPermissionIsTold();
    void hiddenFilesAreNotMeant();
    void theToolsOwnFileIsNotReadAgain();
    void theToolsOwnFolderIsNotReadAgain();
    void aFolderThatIsNamedAsSourceIsReadThoughItIsTheDestination();
    void simulationRefusesWhatTheRealRunRefuses_data();
    void simulationRefusesWhatTheRealRunRefuses();
    void simulationRefusesWhatTheUserMayNotWrite();
    void theDestinationIsLookedAtBeforeAnythingIsRead_data();
    void theDestinationIsLookedAtBeforeAnythingIsRead();
    void whoIsToldToEndLeavesNothing_data();
    void whoIsToldToEndLeavesNothing();
    void failuresAreToldInPortuguese();
    void inputThatCannotBeKeptIsTold_data();
    void inputThatCannotBeKeptIsTold();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QString Put(const QString& name, const QByteArray& content = PeixeVivo) const
    {
        QString path = Path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("not written");
        return path;
    }
    static Outcome Convert(const QStringList& arguments)
    {
        return RunTool(QStringLiteral(MELODARIO_CONVERTE), arguments);
    }
    Outcome ConvertAsOrdinaryUser(const QStringList& arguments) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_converte_origens::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

/// Others may not reach the place where the program was built.
Outcome tst_converte_origens::ConvertAsOrdinaryUser(const QStringList& arguments) const
{
    const auto all =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    const QString program = Path(u"programa"_qs);
    QFile::copy(QStringLiteral(MELODARIO_CONVERTE), program);
    if (!QFile::setPermissions(program, all) || !QFile::setPermissions(m_folder->path(), all))
        return {};
    const QStringList command = AsOrdinaryUser() + QStringList{program} + arguments;
    return RunTool(command.first(), command.mid(1));
}

void tst_converte_origens::noSourceIsReplaced_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("written");
    QTest::newRow("the file itself")
        << u"s/Peixe Vivo.cho"_qs << u"s/Peixe Vivo.cho"_qs << u"s/Peixe Vivo.cho"_qs;
    QTest::newRow("a link to it") << u"s/Peixe Vivo.cho"_qs << u"atalho.cho"_qs << u"atalho.cho"_qs;
    QTest::newRow("its folder") << u"s/Peixe Vivo.cho"_qs << u"s/"_qs << u"s/Peixe Vivo.cho"_qs;
    QTest::newRow("a folder onto itself") << u"s"_qs << u"s/"_qs << u"s/Peixe Vivo.cho"_qs;
}

void tst_converte_origens::noSourceIsReplaced()
{
    QFETCH(QString, source);
    QFETCH(QString, target);
    QFETCH(QString, written);
    const QByteArray mine = PeixeVivo + "[G]minha\n";
    const QString file = Put(u"s/Peixe Vivo.cho"_qs, mine);
    QVERIFY(QFile::link(file, Path(u"atalho.cho"_qs)));
    for (const QStringList& options :
         {QStringList(), QStringList{u"--force"_qs}, QStringList{u"--force"_qs, u"--simular"_qs}}) {
        const Outcome outcome = Convert(options + QStringList{Path(source), Path(target)});
        QCOMPARE(outcome.err,
                 Path(written) + u": é uma das origens, e nenhuma origem é alterada\n");
        QCOMPARE(outcome.code, 2);
        QCOMPARE(Content(file), mine);
    }
}

void tst_converte_origens::whatOfAFolderCannotBeReadIsTold()
{
    Put(u"s/a.cho"_qs);
    Put(u"outra/b.cho"_qs);
    const QString folder = Path(u"s"_qs);
    const std::string unnamed = folder.toStdString() + "/caf\xE9.cho";
    std::ofstream(unnamed) << PeixeVivo.constData();
    QVERIFY(QFile::link(Path(u"nada.cho"_qs), folder + u"/quebrado.cho"));
    QVERIFY(QFile::link(Path(u"outra"_qs), folder + u"/atalho"));
    const Outcome outcome = Convert({folder, Path(u"novo.mld"_qs)});
    QVERIFY(std::filesystem::remove(unnamed)); // else the folder would stay
    QCOMPARE(outcome.code, 1);
    QStringList told = outcome.err.split(u'\n', Qt::SkipEmptyParts);
    told.sort();
    QCOMPARE(told, QStringList({folder + u"/atalho: não lido: atalhos para pastas não são seguidos",
                                folder + u"/caf\uFFFD.cho: não lido: o nome não está em UTF-8",
                                folder + u"/quebrado.cho: não lido: o atalho não leva a um "
                                         "arquivo"}));
    QVERIFY2(outcome.out.endsWith(u"1 música(s) de 1 arquivo(s); em 3 algo ficou para trás\n"),
             qPrintable(outcome.out));
}

void tst_converte_origens::aFolderWithoutPermissionIsTold()
{
    Put(u"s/a.cho"_qs);
    Put(u"s/fechada/b.cho"_qs);
    QVERIFY(QFile::setPermissions(Path(u"s/fechada"_qs), QFile::ExeOwner));
    const Outcome outcome = ConvertAsOrdinaryUser({u"--formato=txt"_qs, Path(u"s"_qs), u"-"_qs});
    QFile::setPermissions(Path(u"s/fechada"_qs),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.err.startsWith(
                 QString(Path(u"s/fechada"_qs) + u": não lido: a pasta não pode ser lida\n")),
             qPrintable(outcome.err));
    QVERIFY(outcome.out.startsWith(u"Título: Peixe Vivo"));
}

void tst_converte_origens::hiddenFilesAreNotMeant()
{
    Put(u"s/a.cho"_qs);
    Put(u"s/.b.cho"_qs);
    Put(u"s/.git/c.cho"_qs);
    const Outcome outcome = Convert({Path(u"s"_qs), Path(u"novo.mld"_qs)});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    QVERIFY(outcome.out.endsWith(u": 1 música(s) de 1 arquivo(s)\n"));
}

void tst_converte_origens::theToolsOwnFileIsNotReadAgain()
{
    Put(u"s/a.cho"_qs);
    const QString target = Path(u"s/tudo.cho"_qs);
    QCOMPARE(Convert({Path(u"s"_qs), target}).code, 0);
    const QByteArray first = Content(target);
    const Outcome again = Convert({u"--force"_qs, Path(u"s"_qs), target});
    QCOMPARE(again.err, target + u": deixado fora: é o destino\n");
    QCOMPARE(again.code, 0);
    QCOMPARE(again.out, target + u": 1 música(s) de 1 arquivo(s)\n");
    QCOMPARE(Content(target), first);
}

void tst_converte_origens::theToolsOwnFolderIsNotReadAgain()
{
    Put(u"s/a.cho"_qs);
    const QString target = Path(u"s/pronto/"_qs);
    QCOMPARE(Convert({Path(u"s"_qs), target}).code, 0);
    const Outcome again = Convert({u"--force"_qs, Path(u"s"_qs), target});
    QCOMPARE(again.err, Path(u"s/pronto"_qs) + u": deixado fora: é o destino\n");
    QCOMPARE(again.code, 0);
    QCOMPARE(QDir(target).entryList(QDir::Files), QStringList{u"Peixe Vivo.cho"_qs});
}

void tst_converte_origens::aFolderThatIsNamedAsSourceIsReadThoughItIsTheDestination()
{
    Put(u"s/a.txt"_qs, "Peixe Vivo\n\nC\nLa\n");
    QCOMPARE(Convert({Path(u"s"_qs), Path(u"s/"_qs)}).code, 0);
    QCOMPARE(QDir(Path(u"s"_qs)).entryList(QDir::Files, QDir::Name),
             QStringList({u"Peixe Vivo.cho"_qs, u"a.txt"_qs}));
}

void tst_converte_origens::simulationRefusesWhatTheRealRunRefuses_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("told");
    QTest::newRow("a file that is there")
        << u"meu.mld"_qs << u"meu.mld: o arquivo já existe; --force o substitui\n"_qs;
    QTest::newRow("a file that is there in a folder")
        << u"pasta/"_qs << u"pasta/Peixe Vivo.cho: o arquivo já existe; --force o substitui\n"_qs;
    QTest::newRow("a folder that is not there")
        << u"nada/novo.mld"_qs
        << u"nada/novo.mld: não foi possível escrever: a pasta não existe\n"_qs;
    QTest::newRow("a file in the place of the folder")
        << u"meu.mld/"_qs << u"meu.mld/: a pasta não pode ser criada\n"_qs;
    QTest::newRow("a songbook where no folder is")
        << u"nada/novo.pdf"_qs
        << u"nada/novo.pdf: não foi possível escrever: a pasta não existe\n"_qs;
}

void tst_converte_origens::simulationRefusesWhatTheRealRunRefuses()
{
    QFETCH(QString, target);
    QFETCH(QString, told);
    const QString source = Put(u"a.cho"_qs);
    Put(u"meu.mld"_qs, "mine");
    Put(u"pasta/Peixe Vivo.cho"_qs, "mine");
    for (const QStringList& options : {QStringList{u"--simular"_qs}, QStringList()}) {
        const Outcome outcome = Convert(options + QStringList{source, Path(target)});
        QCOMPARE(outcome.err, Path(told));
        QCOMPARE(outcome.out, QString());
        QCOMPARE(outcome.code, 2);
    }
    QCOMPARE(Content(Path(u"meu.mld"_qs)), QByteArray("mine"));
    QVERIFY(!QFile::exists(Path(u"nada"_qs)));
    // What is not there yet is made, and a simulation knows it.
    QCOMPARE(Convert({u"--simular"_qs, source, Path(u"nova/pasta/"_qs)}).code, 0);
    QVERIFY(!QFile::exists(Path(u"nova"_qs)));
}

void tst_converte_origens::simulationRefusesWhatTheUserMayNotWrite()
{
    const QString source = Put(u"a.cho"_qs);
    Put(u"fechada/x.txt"_qs);
    const auto readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(Path(u"fechada"_qs), readable));
    for (const QStringList& options : {QStringList{u"--simular"_qs}, QStringList()}) {
        const QString file = Path(u"fechada/a.mld"_qs);
        const Outcome one = ConvertAsOrdinaryUser(options + QStringList{source, file});
        QCOMPARE(one.err, file + u": não foi possível escrever: falta a permissão\n");
        QCOMPARE(one.code, 2);
        const QString folder = Path(u"fechada/"_qs);
        const Outcome many = ConvertAsOrdinaryUser(options + QStringList{source, folder});
        QCOMPARE(many.err, folder + u": falta a permissão para escrever\n");
        QCOMPARE(many.code, 2);
        const Outcome deep = ConvertAsOrdinaryUser(options + QStringList{source, folder + u"b/"});
        QCOMPARE(deep.err, folder + u"b/: a pasta não pode ser criada\n");
        QCOMPARE(deep.code, 2);
    }
    QFile::setPermissions(Path(u"fechada"_qs), readable | QFile::WriteOwner);
}

void tst_converte_origens::theDestinationIsLookedAtBeforeAnythingIsRead_data()
{
    QTest::addColumn<QString>("target");
    for (const char* target : {"meu.mld", "nada/novo.mld", "meu.mld/", "nada/novo.pdf", "s/a.cho"})
        QTest::newRow(target) << QString::fromLatin1(target);
}

/// What cannot be read would be told else.
void tst_converte_origens::theDestinationIsLookedAtBeforeAnythingIsRead()
{
    QFETCH(QString, target);
    const QString source = Put(u"s/a.cho"_qs);
    Put(u"meu.mld"_qs, "mine");
    const Outcome outcome = Convert({Path(u"não há.cho"_qs), source, Path(target)});
    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.err.startsWith(Path(target) + u": "), qPrintable(outcome.err));
    QCOMPARE(outcome.err.count(u'\n'), 1);
}

void tst_converte_origens::whoIsToldToEndLeavesNothing_data()
{
    QTest::addColumn<QString>("target");
    for (const char* target : {"novo.mld", "novo.txt", "novo.pdf", "novo.cho", "nova/", "s/"})
        QTest::newRow(target) << QString::fromLatin1(target);
}

/// The last source gives nothing until the program was told to end.
void tst_converte_origens::whoIsToldToEndLeavesNothing()
{
    QFETCH(QString, target);
    const QString source = Put(u"s/a.cho"_qs);
    const QString pipe = Path(u"fila"_qs);
    QCOMPARE(RunTool(u"mkfifo"_qs, {pipe}).code, 0);
    const QString missing = Path(u"nada.cho"_qs);
    QProcess program;
    program.start(QStringLiteral(MELODARIO_CONVERTE), {source, missing, pipe, Path(target)});
    program.setReadChannel(QProcess::StandardError);
    while (!program.canReadLine()) // from then on the wish is noted
        QVERIFY(program.waitForReadyRead(60'000));
    program.terminate();
    constexpr int ShortWhileMs = 50;
    do // as often as it takes until the program has opened its end, if it still does
        std::fstream(pipe.toStdString()) << "La\n";
    while (!program.waitForFinished(ShortWhileMs));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(QString::fromUtf8(program.readAllStandardError()),
             missing + u": não lido: o arquivo não existe\ninterrompido; nada foi escrito\n");
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(m_folder->path()).entryList(all, QDir::Name), QStringList({u"fila"_qs, u"s"_qs}));
    QCOMPARE(QDir(Path(u"s"_qs)).entryList(all), QStringList{u"a.cho"_qs});
}

void tst_converte_origens::failuresAreToldInPortuguese()
{
    const QString closed = Put(u"fechado.cho"_qs);
    QVERIFY(QFile::setPermissions(closed, QFile::WriteOwner));
    const QString missing = Path(u"nada.cho"_qs);
    const Outcome outcome = ConvertAsOrdinaryUser({missing, closed, u"-"_qs});
    QCOMPARE(outcome.err, missing + u": não lido: o arquivo não existe\n" + closed +
                              u": não lido: falta a permissão\n"
                              "nenhuma música encontrada; nada foi escrito\n");
    QCOMPARE(outcome.code, 2);
    // No file may grow by a single byte, as on a full disk.
    const QString source = Put(u"a.cho"_qs);
    for (const QString& target : {Path(u"novo.mld"_qs), Path(u"nova/"_qs)}) {
        const QString file = target.endsWith(u'/') ? QString(target + u"Peixe Vivo.cho") : target;
        const Outcome full =
            RunTool(u"/bin/sh"_qs, {u"-c"_qs, u"trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""_qs,
                                    QStringLiteral(MELODARIO_CONVERTE), source, target});
        QCOMPARE(full.err, file +
                               u": não foi possível escrever: o disco está cheio ou não aceita a "
                               "gravação\n");
        QCOMPARE(full.code, 2);
        QVERIFY(!QFile::exists(target));
    }
}

void tst_converte_origens::inputThatCannotBeKeptIsTold_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("why");
    QTest::newRow("a closed input")
        << u"exec \"$0\" \"$@\" <&-"_qs << u"a entrada padrão não pode ser lida"_qs;
    QTest::newRow("a folder as input")
        << u"exec \"$0\" \"$@\" </"_qs << u"a entrada padrão não pode ser lida"_qs;
    QTest::newRow("a full disk")
        << u"trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""_qs
        << u"não há lugar para um arquivo provisório: o disco está cheio ou não aceita a gravação"_qs;
}

void tst_converte_origens::inputThatCannotBeKeptIsTold()
{
    QFETCH(QString, command);
    QFETCH(QString, why);
    const auto convert = [&](const QString& target) {
        return RunTool(u"/bin/sh"_qs,
                       {u"-c"_qs, command, QStringLiteral(MELODARIO_CONVERTE), u"-"_qs, target},
                       PeixeVivo);
    };
    for (const QString& target : {Path(u"novo.mld"_qs), Path(u"novo.pdf"_qs)}) {
        const Outcome outcome = convert(target);
        QCOMPARE(outcome.err, u"(entrada): não lido: "_qs + why +
                                  u"\nnenhuma música encontrada; nada foi escrito\n");
        QCOMPARE(outcome.code, 2);
    }
    const Outcome catalogue = convert(Path(u"novo.mdb"_qs));
    QCOMPARE(catalogue.err, u"(entrada): não lida: "_qs + why + u'\n');
    QCOMPARE(catalogue.code, 2);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

QTEST_GUILESS_MAIN(tst_converte_origens)
#include "tst_converte_origens.moc"
