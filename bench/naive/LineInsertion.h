#pragma once

#include "PlainEngine.h"

#include <QTextEdit>

/// A chord sheet as one would write it first: the shown document emptied and written again line by
/// line, each line in its format.
class LineInsertion
{
public:
    explicit LineInsertion(PlainEngine engine)
        : m_engine(std::move(engine))
    {
    }

    /// @param deslocamento  semitones, -12 to +12
    void Show(QTextEdit& box, const QString& song, std::int16_t deslocamento);

private:
    PlainEngine m_engine;
};
