#pragma once

#include "mld/ExchangeSong.h"

#include <QList>
#include <QSet>
#include <QString>

namespace Songbook {

/// Something that a reader tells about its source.
struct Remark
{
    enum class Kind {
        Note, ///< kept, but written in another way or in another place
        Lost, ///< has no place in a song of ours and stayed behind
    };

    Kind kind = Kind::Note;
    int line = 0; ///< of the source, from 1; 0 when it concerns the whole
    QString what; ///< in Portuguese
};

/// Collects remarks. What was said once is not said again for later lines, and a hostile source
/// cannot fill the memory: after the first two hundred they are only counted.
class Remarks
{
public:
    void Note(int line, const QString& what) { Add({Remark::Kind::Note, line, what}); }
    void Lost(int line, const QString& what) { Add({Remark::Kind::Lost, line, what}); }

    /// @return all of them in the order of their coming, at the end how many there were besides
    QList<Remark> All() const;

private:
    void Add(const Remark& remark);

    QList<Remark> m_remarks;
    QSet<QString> m_said;
    qsizetype m_more = 0;
    bool m_moreLost = false;
};

/// What came out of one source.
struct Reading
{
    QList<ExchangeSong> songs; ///< every field has a value
    QList<Remark> remarks;
    QString failure; ///< why nothing could be read, in Portuguese; empty when it could
    int failureLine = 0;
};

/// @return a reading that failed. @param line  from 1, or 0
Reading Failed(const QString& why, int line = 0);

/// @return the start of text on one line, fit to be quoted in a message
QString Excerpt(QStringView text);

} // namespace Songbook
