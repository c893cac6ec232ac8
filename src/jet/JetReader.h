#pragma once

#include "jet/FrameReader.h"
#include "store/Value.h"
#include "store/dialect/Schema.h"

#include <QElapsedTimer>
#include <QList>
#include <QStringList>

#include <functional>
#include <vector>

class QProcess;

/// A table as the file tells of it.
struct JetTable
{
    QString name;
    qint64 rows = 0;
    QString counted;       ///< its AutoNumber column; "" for none
    qint64 lastNumber = 0; ///< that the AutoNumber gave out
    QStringList columns;
};

/// Reads a catalogue in the older format through melodario-jet, a process of its own with limits on
/// time and memory: the library for that format can crash or go on for ever on a damaged file.
class JetReader
{
public:
    /// Each may throw, which ends the reading.
    struct Listener
    {
        /// All tables of the file, before the first row.
        std::function<void(const QList<JetTable>& tables)> tables;
        /// @param table   position among the wanted ones
        /// @param fields  of the wanted columns, in their order
        std::function<void(std::size_t table, const std::vector<Value>& fields)> row;
        /// Again and again, also while nothing comes; may let events run.
        std::function<void()> waiting;
    };

    /// @param path    the file
    /// @param wanted  the tables and columns to read; none for the list of tables alone
    JetReader(QString path, const std::vector<Table>& wanted)
        : m_path(std::move(path))
        , m_wanted(wanted)
    {
    }

    /// How long the other process may say nothing.
    void SetPatience(int milliseconds) { m_patience = milliseconds; }

    /// @throws RuntimeError StoreFailure when the file or one of the wanted tables or columns is
    /// not there, is damaged, or the process fails or exceeds a limit
    void Read(const Listener& listener);

    /// @return the program that reads: melodario-jet in the folder of the running one
    static QString Program();

    /// @return whether that program is there. It exists for Linux only; what is said where it is
    /// missing is WhyMissing()
    static bool IsThere();

    /// @return a sentence for the user
    static QString WhyMissing();

private:
    enum class State { Start, Tables, BetweenTables, Rows, Done };

    void Start(QProcess& process) const;
    void Follow(QProcess& process);
    void TakeAll();
    void Take(FrameContent& frame);
    void TakeHello(FrameContent& frame);
    void TakeTable(FrameContent& frame);
    void TakeRow(FrameContent& frame);
    [[noreturn]] static void TakeFailure(FrameContent& frame);

    static constexpr int UsualPatience = 30000;

    QString m_path;
    const std::vector<Table>& m_wanted;
    int m_patience = UsualPatience;
    const Listener* m_listener = nullptr;
    std::optional<FrameReader> m_frames;
    State m_state = State::Start;
    QList<JetTable> m_tables;
    std::size_t m_next = 0; ///< the wanted table that begins next
    quint32 m_codePage = 0;
};
