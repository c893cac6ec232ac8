#include "tools/ConversionReport.h"

#include "tools/ConversionOrder.h"

namespace {

QString Place(const QString& source, int line)
{
    const QString name = source == Standard() ? u"(entrada)"_qs : source;
    return line > 0 ? QString(name + u':' + QString::number(line)) : name;
}

} // namespace

void ConversionReport::Tell(const QString& source, const QString& title,
                            const QList<Songbook::Remark>& remarks)
{
    const QString about =
        title.isEmpty() ? u": "_qs : u": \""_qs + Songbook::Excerpt(title) + u"\": ";
    for (const Songbook::Remark& remark : remarks) {
        const bool isLost = remark.kind == Songbook::Remark::Kind::Lost;
        if (isLost)
            m_lossy.insert(source);
        if (isLost || m_tellNotes)
            m_listener.tell(Place(source, remark.line) + about + remark.what);
    }
}

void ConversionReport::TellUnread(const QString& source, int line, const QString& why)
{
    m_lossy.insert(source);
    m_listener.tell(Place(source, line) + u": não lido: " + why);
}
