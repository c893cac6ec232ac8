#include "CatalogoAntigo.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <list>
#include <map>

namespace {

constexpr quint32 Seed = 20261121;
constexpr int UsualCopies = 100;
constexpr int PatienceMs = 180000;

constexpr qsizetype PageSize = 4096;
constexpr char RowsPage = 1;

/// A copy of the sample in a folder of its own, one byte changed, and its conversion.
struct Trial
{
    explicit Trial(int numberOfIt)
        : number(numberOfIt)
    {
    }

    int number;
    qsizetype place = 0;
    QTemporaryDir folder;
    QProcess process;
};

enum class Outcome { Exact, ExactFromAnotherText, Refused };

/// Where a flip hurts most: everything but the long texts, which are nine tenths of the file.
QList<qsizetype> PagesOfStructure(const QByteArray& file)
{
    QList<qsizetype> pages;
    for (qsizetype page = 0; page < file.size(); page += PageSize) {
        if (file[page] != RowsPage || file.mid(page + 4, 4) != "LVAL")
            pages.append(page);
    }
    return pages;
}

} // namespace

/// The real command on copies of a catalogue in which one byte was changed: it ends each time, with
/// a whole catalogue or with a message and nothing. MELODARIO_COPIAS=1000 tries a thousand copies.
class tst_jet_damage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void flippedCopiesAreConvertedWholeOrNotAtAll();

private:
    void Start(Trial& trial, QRandomGenerator& random) const;
    void Judge(Trial& trial);

    QByteArray m_sample;
    QList<qsizetype> m_structure;
    std::map<Outcome, int> m_outcomes;
    std::map<QString, int> m_messages;
    QStringList m_severalRows;
    QStringList m_wrong;
};

void tst_jet_damage::initTestCase()
{
    m_sample = CatalogoAntigo::Conteudo();
    m_structure = PagesOfStructure(m_sample);
    QVERIFY(m_structure.size() > 30);
}

/// Every second flip hits the structure, every other one any place.
void tst_jet_damage::Start(Trial& trial, QRandomGenerator& random) const
{
    trial.place = trial.number % 2 == 0
                      ? m_structure[random.bounded(m_structure.size())] + random.bounded(PageSize)
                      : random.bounded(m_sample.size());
    QByteArray content = m_sample;
    content[trial.place] = static_cast<char>(content[trial.place] ^ (1 + random.bounded(255)));
    QFile file(trial.folder.filePath(u"antigo.mdb"_qs));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("not written");
    file.close();
    trial.process.start(QStringLiteral(MELODARIO_CONVERTE),
                        {file.fileName(), trial.folder.filePath(u"novo.mdb"_qs)});
}

void tst_jet_damage::Judge(Trial& trial)
{
    const QString where = u"copy %1, byte %2: "_qs.arg(trial.number).arg(trial.place);
    const QString target = trial.folder.filePath(u"novo.mdb"_qs);
    const QStringList files =
        QDir(trial.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    const QString words = QString::fromUtf8(trial.process.readAllStandardError());
    if (trial.process.exitStatus() != QProcess::NormalExit) {
        m_wrong += where + u"crashed";
    } else if (trial.process.exitCode() == 2) {
        ++m_outcomes[Outcome::Refused];
        ++m_messages[words.section(u": "_qs, 1).trimmed()];
        if (files != QStringList{u"antigo.mdb"_qs})
            m_wrong += where + u"refused and left " + files.join(u' ');
        if (!words.contains(u"não convertido: ") && !words.contains(u"não é um catálogo"))
            m_wrong += where + u"no message: " + words;
    } else if (files != QStringList{u"antigo.mdb"_qs, u"novo.mdb"_qs}) {
        m_wrong += where + u"left " + files.join(u' ');
    } else if (CatalogoAntigo::Estado(target) != u"sound") {
        m_wrong += where + CatalogoAntigo::Estado(target);
    } else if (CatalogoAntigo::Linhas(target) != CatalogoAntigo::LinhasEsperadas()) {
        m_wrong += where + CatalogoAntigo::Linhas(target);
    } else {
        // A changed letter is a letter: no format of that age knows better. What is told as done
        // was compared with the copy, row by row, by the command itself.
        QStringList differences = CatalogoAntigo::Diferencas(target);
        ++m_outcomes[differences.isEmpty() ? Outcome::Exact : Outcome::ExactFromAnotherText];
        // One row went and another one came; the last number follows a larger ID.
        differences.removeIf([](const QString& line) { return line.startsWith(u"last number"); });
        if (differences.size() > 2)
            m_severalRows += where + differences.join(u'\n');
    }
}

void tst_jet_damage::flippedCopiesAreConvertedWholeOrNotAtAll()
{
    const int copies = qMax(UsualCopies, qEnvironmentVariableIntValue("MELODARIO_COPIAS"));
    const auto atOnce = static_cast<std::size_t>(qBound(2, QThread::idealThreadCount(), 4));
    QRandomGenerator random(Seed);
    std::list<Trial> running;
    for (int number = 0; number < copies || !running.empty();) {
        while (number < copies && running.size() < atOnce)
            Start(running.emplace_back(number++), random);
        Trial& oldest = running.front();
        if (!oldest.process.waitForFinished(PatienceMs)) {
            m_wrong += u"copy %1, byte %2: hangs"_qs.arg(oldest.number).arg(oldest.place);
            oldest.process.kill();
            oldest.process.waitForFinished();
        } else {
            Judge(oldest);
        }
        running.pop_front();
    }
    for (const auto& [message, times] : m_messages)
        qInfo().noquote() << times << message;
    for (const QString& rows : std::as_const(m_severalRows))
        qInfo().noquote() << rows;
    qInfo("%d copies: %d as the original, %d with what the flip wrote (%d of them in more than one "
          "row), %d refused",
          copies, m_outcomes[Outcome::Exact], m_outcomes[Outcome::ExactFromAnotherText],
          static_cast<int>(m_severalRows.size()), m_outcomes[Outcome::Refused]);
    QCOMPARE(m_wrong, QStringList());
    QVERIFY(m_outcomes[Outcome::Refused] > 0);
    QVERIFY(m_outcomes[Outcome::Exact] > 0);
}

QTEST_GUILESS_MAIN(tst_jet_damage)
#include "tst_jet_damage.moc"
