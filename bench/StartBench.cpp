// The start: real processes, the program's and one that shows an empty window, by turns.

#include "Benches.h"
#include "harness/Catalogue.h"
#include "harness/Rounds.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <map>

namespace {

constexpr int Rounds = 15;
constexpr int Patience = 60000; // ms

/// What a process told of itself: when each of its marks came, and its figures.
struct Report
{
    std::map<QByteArray, double> marks;   ///< nanoseconds since the process was asked for
    std::map<QByteArray, double> figures; ///< as written

    /// @return when the mark came, by the clock that is read
    Nanoseconds At(const QByteArray& mark)
    {
        return ReadProcessorTime ? figures[mark + "-processor"] : marks[mark];
    }
};

Report Start(const QString& program, const QString& kind)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"MELODARIO_BENCH_START"_qs, kind);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    Report report;
    const auto start = std::chrono::steady_clock::now();
    process.start(program, QStringList());
    bool running = true;
    while (running || process.canReadLine()) {
        running = process.waitForReadyRead(Patience);
        const double now =
            std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
                .count();
        while (process.canReadLine()) {
            const QByteArrayList words = process.readLine().trimmed().split(' ');
            if (words.size() == 1)
                report.marks[words[0]] = now;
            else
                report.figures[words[0]] = words[1].toDouble();
        }
    }
    if (process.state() != QProcess::NotRunning)
        process.waitForFinished(Patience);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("the started process failed");
    return report;
}

/// A folder as a user has it: the program, its config.ini and the catalogue that it names.
class Installed
{
public:
    explicit Installed(const TestCatalogue& catalogue)
    {
        const QString name = QFileInfo(QStringLiteral(MELODARIO_START_PROGRAM)).fileName();
        m_program = m_folder.filePath(name);
        QFile config(m_folder.filePath(u"config.ini"_qs));
        if (!QFile::copy(QStringLiteral(MELODARIO_START_PROGRAM), m_program) ||
            !config.open(QIODevice::WriteOnly))
            qFatal("the program cannot be copied");
        config.write("[BANCO]\r\nEndereco=" +
                     QDir::toNativeSeparators(catalogue.Path()).toLocal8Bit());
    }

    const QString& Program() const { return m_program; }

private:
    QTemporaryDir m_folder;
    QString m_program;
};

} // namespace

void BenchStart(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    const Installed installed(catalogue);
    std::vector<Nanoseconds> splash;
    std::vector<Nanoseconds> list;
    std::vector<Nanoseconds> empty;
    std::vector<Nanoseconds> repaint;
    std::vector<double> memory;
    std::vector<double> emptyMemory;
    for (int round = -1; round < scale.Rounds(Rounds); ++round) {
        Report program = Start(installed.Program(), u"program"_qs);
        Report window = Start(installed.Program(), u"empty"_qs);
        if (static_cast<int>(program.figures["songs"]) != scale.songs)
            qFatal("the first list does not show all songs");
        if (round < 0)
            continue; // the files come from the disk
        splash.push_back(program.At("splash"));
        list.push_back(program.At("list"));
        repaint.push_back(program.figures["repaint"]);
        memory.push_back(program.figures["memory"]);
        empty.push_back(window.At("window"));
        emptyMemory.push_back(window.figures["memory"]);
    }
    table.Add(u"start to painted splash"_qs, Median(splash), u"empty window"_qs, Median(empty),
              {Aim::AtMost, 1.5});
    const Nanoseconds allowed = 1.5 * Median(empty) + 3 * Median(repaint);
    table.Add(u"start to first list, %1"_qs.arg(scale.Songs()), Median(list),
              u"1.5 empty windows and 3 repaints"_qs, allowed, {Aim::AtMost, 1});
    table.Add(u"start to usable main window, %1"_qs.arg(scale.Songs()), Median(list),
              u"empty window"_qs, Median(empty));
    table.AddText(u"memory at its peak, %1"_qs.arg(scale.Songs()),
                  ResultTable::Bytes(Median(memory)),
                  u"empty window: "_qs + ResultTable::Bytes(Median(emptyMemory)),
                  Median(memory) / Median(emptyMemory), {Aim::AtMost, 1.5});
}
