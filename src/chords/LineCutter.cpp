#include "chords/LineCutter.h"

#include "chords/SkipPlain.h"

namespace Chords {

LineCutter::LineCutter(QStringView texto) noexcept
    : m_next(texto.utf16())
    , m_end(texto.utf16() + texto.size())
{
}

/// Steps over a line's end. @return false, without a step, where the line goes on
inline bool LineCutter::EndsLine()
{
    if (*m_next == Separator) {
        ++m_next;
        return true;
    }
    if (*m_next != u'\r')
        return false;
    const char16_t* after = m_next + 1;
    while (after != m_end && *after == u'%')
        ++after;
    if (after == m_end || *after != u'\n')
        return false;
    m_next = after + 1;
    return true;
}

bool LineCutter::Next(QStringView& line)
{
    if (m_state != Inside) {
        line = {};
        return m_state == BeforeLast ? (m_state = After, true) : false;
    }
    const char16_t* start = m_next;
    bool escaped = false;
    for (;;) {
        const char16_t* special = SkipPlain(m_next, m_end);
        m_next = special;
        if (special == m_end || EndsLine()) {
            if (special == m_end)
                m_state = BeforeLast;
            if (escaped)
                m_escaped.append(QStringView(start, special));
            line = escaped ? QStringView(m_escaped) : QStringView(start, special);
            return true;
        }
        if (*special == u'\r') {
            ++m_next;
            continue;
        }
        if (!escaped)
            m_escaped.resize(0);
        escaped = true;
        m_escaped.append(QStringView(start, special));
        if (*special != u'%')
            m_escaped.append(u'\\').append(QChar(*special));
        start = ++m_next;
    }
}

} // namespace Chords
