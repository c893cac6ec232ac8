#pragma once

#include <QString>
#include <QStringList>

#include <functional>

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

/// Starts PROGRAM CATALOGUE ACTION BOUNDARY once per boundary, each time on a fresh copy of the
/// catalogue, until it runs to its end.
/// @param state  what matters in a catalogue as one text
/// @return the state after each kill, and last the one after the run to the end; "damaged" where
///         SQLite finds the file so
QStringList StatesAfterKills(const QString& program, const QString& catalogue,
                             const QString& action,
                             const std::function<QString(const QString& path)>& state);

/// Judges an action that is stored as a whole or not at all: killed at enough boundaries, before
/// and after its commit, it leaves the state before it or after it and nothing between.
/// @param states  as StatesAfterKills returns them
/// @param atLeast  boundaries that the action has
/// @return what is wrong; empty when nothing is
QString WhatIsNotWhole(const QString& before, const QStringList& states, int atLeast);

} // namespace Interruption
