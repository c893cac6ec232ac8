#include "songbook/Reading.h"

namespace Songbook {

namespace {

constexpr qsizetype MostRemarks = 200;
constexpr qsizetype ExcerptLength = 60;

} // namespace

void Remarks::Add(const Remark& remark)
{
    if (m_said.contains(remark.what))
        return;
    if (m_remarks.size() >= MostRemarks) {
        ++m_more;
        m_moreLost = m_moreLost || remark.kind == Remark::Kind::Lost;
        return;
    }
    m_said.insert(remark.what);
    m_remarks.append(remark);
}

QList<Remark> Remarks::All() const
{
    QList<Remark> all = m_remarks;
    if (m_more > 0)
        all.append({m_moreLost ? Remark::Kind::Lost : Remark::Kind::Note, 0,
                    u"e mais %1 observações"_qs.arg(m_more)});
    return all;
}

Reading Failed(const QString& why, int line)
{
    Reading reading;
    reading.failure = why;
    reading.failureLine = line;
    return reading;
}

QString Excerpt(QStringView text)
{
    QString shown = text.first(qMin(text.size(), 4 * ExcerptLength)).toString().simplified();
    for (QChar& sign : shown) {
        if (!sign.isPrint() && !sign.isSurrogate())
            sign = u' ';
    }
    if (shown.size() <= ExcerptLength && text.size() <= 4 * ExcerptLength)
        return shown;
    shown.truncate(ExcerptLength);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    return shown + u"…";
}

} // namespace Songbook
