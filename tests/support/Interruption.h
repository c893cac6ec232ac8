#pragma once

#include <QString>
#include <QStringList>

/// Two halves of one test: a program that changes a catalogue stands still at one of its boundaries
/// (a statement that is about to run, a box that opens), and a test that kills it there, without a
/// last word, and looks at the file.
namespace Interruption {

/// The program's half.
class Boundaries
{
public:
    /// @param stopAt  the boundary to stand still at, counted from 0; negative for none
    explicit Boundaries(int stopAt)
        : m_stopAt(stopAt)
    {
    }

    /// Counts one boundary. At the one to stop at it tells whoever started the program and never
    /// returns.
    void Reached();

private:
    int m_stopAt;
    int m_reached = 0;
};

/// The test's half: starts a program, waits until it stands still at a boundary or has ended, and
/// kills it where it stands.
/// @return true when it stood still; false when it ended by itself, with exit code 0. Anything else
///         is fatal
bool StartAndKill(const QString& program, const QStringList& arguments);

} // namespace Interruption
