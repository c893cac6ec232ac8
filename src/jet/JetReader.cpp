#include "jet/JetReader.h"

#include "jet/JetFailure.h"
#include "jet/JetFields.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace {

using RowStream::Frame;

constexpr int SliceMs = 20;

QStringList Arguments(const QString& path, const std::vector<Table>& wanted)
{
    QStringList arguments{QFileInfo(path).absoluteFilePath()};
    for (const Table& table : wanted) {
        for (const Column& column : table.columns)
            arguments += table.name + u'.' + column.name;
    }
    return arguments;
}

/// What the library would otherwise obey.
QProcessEnvironment Environment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name :
         {u"MDBPATH"_qs, u"MDBOPTS"_qs, u"MDB_ICONV"_qs, u"MDB_JET3_CHARSET"_qs})
        environment.remove(name);
    return environment;
}

[[noreturn]] void ThrowDisorder()
{
    JetFailure::ThrowDamaged(u"os blocos lidos vêm em outra ordem"_qs);
}

/// Ends the other process when this one has no more use for it.
class EndAtExit
{
public:
    explicit EndAtExit(QProcess& process)
        : m_process(process)
    {
    }
    ~EndAtExit()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished();
    }
    EndAtExit(const EndAtExit&) = delete;
    EndAtExit& operator=(const EndAtExit&) = delete;

private:
    QProcess& m_process;
};

} // namespace

QString JetReader::Program()
{
    return QCoreApplication::applicationDirPath() + u"/melodario-jet"_qs;
}

bool JetReader::IsThere()
{
    return QFileInfo(Program()).isFile();
}

QString JetReader::WhyMissing()
{
    return u"Falta o programa melodario-jet, que lê catálogos no formato antigo e vem com o "
           "Melodario para Linux."_qs;
}

void JetReader::Read(const Listener& listener)
{
    if (!IsThere())
        JetFailure::Throw(WhyMissing());
    m_listener = &listener;
    m_state = State::Start;
    m_tables.clear();
    m_next = 0;
    m_frames.emplace(RowStream::SmallestBound +
                     RowStream::LargestGrowth * static_cast<quint64>(QFileInfo(m_path).size()));
    QProcess process;
    const EndAtExit end(process);
    Start(process);
    Follow(process);
    const bool ended = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (!ended || m_state != State::Done || !m_frames->AtEnd())
        JetFailure::Throw(u"O catálogo antigo está danificado: a leitura dele parou de repente ou "
                          "passou do limite de tempo ou de memória."_qs,
                          u"melodario-jet %1 %2"_qs
                              .arg(process.exitStatus() == QProcess::NormalExit ? u"terminou com"_qs
                                                                                : u"caiu com"_qs)
                              .arg(process.exitCode()));
}

void JetReader::Start(QProcess& process) const
{
    process.setProcessEnvironment(Environment());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(Program(), Arguments(m_path, m_wanted), QIODevice::ReadOnly);
    if (!process.waitForStarted())
        JetFailure::Throw(u"O programa melodario-jet não pôde ser iniciado."_qs,
                          QDir::toNativeSeparators(Program()));
}

void JetReader::Follow(QProcess& process)
{
    QElapsedTimer silence;
    silence.start();
    while (process.state() != QProcess::NotRunning) {
        if (process.waitForReadyRead(SliceMs)) {
            m_frames->Add(process.readAllStandardOutput());
            TakeAll();
            silence.restart();
        } else if (process.state() != QProcess::NotRunning && silence.elapsed() > m_patience) {
            JetFailure::Throw(u"O catálogo antigo está danificado: a leitura dele parou."_qs,
                              u"%1 ms"_qs.arg(silence.elapsed()));
        }
        if (m_listener->waiting)
            m_listener->waiting();
    }
    m_frames->Add(process.readAllStandardOutput());
    TakeAll();
}

void JetReader::TakeAll()
{
    while (std::optional<FrameContent> frame = m_frames->Next())
        Take(*frame);
}

void JetReader::Take(FrameContent& frame)
{
    switch (frame.Kind()) {
    case Frame::Hello:
        TakeHello(frame);
        break;
    case Frame::Table:
        TakeTable(frame);
        break;
    case Frame::EndOfTables:
        if (m_state != State::Tables)
            ThrowDisorder();
        m_state = State::BetweenTables;
        if (m_listener->tables)
            m_listener->tables(m_tables);
        break;
    case Frame::Begin:
        if (m_state != State::BetweenTables || m_next >= m_wanted.size() || frame.Whole() != m_next)
            ThrowDisorder();
        m_state = State::Rows;
        break;
    case Frame::Row:
        TakeRow(frame);
        break;
    case Frame::End:
        if (m_state != State::Rows)
            ThrowDisorder();
        ++m_next;
        m_state = State::BetweenTables;
        break;
    case Frame::Done:
        if (m_state != State::BetweenTables || m_next != m_wanted.size())
            ThrowDisorder();
        m_state = State::Done;
        break;
    case Frame::Failure:
        TakeFailure(frame);
    default:
        ThrowDisorder();
    }
    frame.ExpectEnd();
}

void JetReader::TakeHello(FrameContent& frame)
{
    if (m_state != State::Start)
        ThrowDisorder();
    if (frame.Whole() != RowStream::Version)
        JetFailure::Throw(u"O programa melodario-jet é de outra versão do Melodario."_qs);
    m_codePage = frame.Whole();
    m_state = State::Tables;
}

void JetReader::TakeTable(FrameContent& frame)
{
    if (m_state != State::Tables)
        ThrowDisorder();
    JetTable table;
    table.name = frame.Name();
    table.rows = frame.Whole();
    table.lastNumber = frame.Signed();
    table.counted = frame.Name();
    const quint32 columns = frame.Whole();
    for (quint32 i = 0; i < columns; ++i)
        table.columns += frame.Name();
    m_tables += table;
}

void JetReader::TakeRow(FrameContent& frame)
{
    if (m_state != State::Rows)
        ThrowDisorder();
    const Table& table = m_wanted[m_next];
    std::vector<Value> fields;
    fields.reserve(table.columns.size());
    for (const Column& column : table.columns)
        fields.push_back(JetFields::Read(frame, table, column, m_codePage));
    m_listener->row(m_next, fields);
}

void JetReader::TakeFailure(FrameContent& frame)
{
    const auto trouble = static_cast<RowStream::Trouble>(frame.Byte());
    const QString about = frame.Name();
    switch (trouble) {
    case RowStream::Trouble::Unreadable:
        JetFailure::Throw(u"O catálogo antigo não pode ser lido."_qs, about);
    case RowStream::Trouble::MissingTable:
        JetFailure::Throw(u"Falta no catálogo antigo a tabela %1."_qs.arg(about));
    case RowStream::Trouble::MissingColumn:
        JetFailure::Throw(u"Falta no catálogo antigo a coluna %1."_qs.arg(about));
    default:
        JetFailure::ThrowDamaged(about);
    }
}
