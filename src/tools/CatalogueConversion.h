#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Turns a catalogue in the older format into a new one, for the command line.
class CatalogueConversion
{
public:
    struct Listener
    {
        /// A line for the user.
        std::function<void(const QString& line)> tell;
        /// @param done  hundredths, from 0 to 100
        std::function<void(int done)> progress;
    };

    enum class Outcome { Done, SomethingLeft, NotDone };

    /// @param simulate  reads and compares everything in memory and writes nothing
    /// @param replace   whether the destination may be there already
    CatalogueConversion(Listener listener, bool simulate, bool replace)
        : m_listener(std::move(listener))
        , m_simulate(simulate)
        , m_replace(replace)
    {
    }

    /// @param source       "-" for the standard input
    /// @param destination  appears whole or not at all
    Outcome Run(const QString& source, const QString& destination);

    /// @return what was done, in one line; "" when nothing was
    const QString& Summary() const { return m_summary; }

private:
    Outcome Convert(const QString& path, const QString& source, const QString& destination);

    Listener m_listener;
    bool m_simulate;
    bool m_replace;
    QString m_summary;
};
