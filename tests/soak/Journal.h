#pragma once

#include <QMap>
#include <QStringList>

#include <cstdint>

/// What was done: the last actions line by line, and how many of each kind. Whatever ends the
/// program before its time prints those lines first, a sanitizer's report too.
class Journal
{
public:
    /// How many actions are remembered.
    static constexpr int Remembered = 200;

    explicit Journal(std::uint64_t seed);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void Begin(int number, const char* kind);
    /// Counts an action that could be done.
    void End(const char* kind);
    /// Adds to the action that is under way.
    void Note(const QString& text);
    void Count(const char* what, int more = 1) { m_counts[QString::fromLatin1(what)] += more; }
    int Counted(const char* what) const { return m_counts.value(QString::fromLatin1(what)); }

    /// Ends the program: something is not as it must be.
    [[noreturn]] void Fail(const QString& finding) const;

    void PrintCounts() const;
    void PrintLast() const;

private:
    std::uint64_t m_seed;
    QStringList m_last;
    QMap<QString, int> m_kinds;  ///< how many actions of each kind
    QMap<QString, int> m_counts; ///< what else was counted
};
