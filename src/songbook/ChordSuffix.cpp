#include "songbook/ChordSuffix.h"

#include <QStringList>

namespace Songbook {

namespace {

bool IsFlat(QChar sign)
{
    return sign == u'b' || sign == u'\u266D';
}

bool IsSharp(QChar sign)
{
    return sign == u'#' || sign == u'\u266F';
}

bool IsAlteration(QChar sign)
{
    return IsFlat(sign) || IsSharp(sign);
}

bool IsDigit(QChar sign)
{
    return sign >= u'0' && sign <= u'9';
}

/// Walks over one suffix and writes it anew.
class SuffixSpeller
{
public:
    explicit SuffixSpeller(QStringView suffix)
        : m_rest(suffix)
    {
    }

    std::optional<QString> Spell()
    {
        while (!m_rest.isEmpty()) {
            if (!Step())
                return std::nullopt;
        }
        return m_out;
    }

private:
    bool Step()
    {
        const QChar sign = m_rest.front();
        if (IsDigit(sign))
            return Number();
        if (IsAlteration(sign))
            return Altered();
        if (sign == u'(')
            return Brackets();
        if (sign == u'/' || sign == u',')
            return Joined();
        return Word();
    }

    bool Take(QStringView word)
    {
        if (!m_rest.startsWith(word))
            return false;
        m_rest = m_rest.sliced(word.size());
        return true;
    }

    QString Digits()
    {
        qsizetype length = 0;
        while (length < m_rest.size() && length < 2 && IsDigit(m_rest[length]))
            ++length;
        QString digits = m_rest.first(length).toString();
        m_rest = m_rest.sliced(length);
        return digits;
    }

    /// "7", "7M", and "5b", whose accidental comes behind.
    bool Number()
    {
        const QString digits = Digits();
        if (Take(u"M") || Take(u"maj") || Take(u"Maj")) {
            m_out += Major(digits);
            return true;
        }
        const bool behind = !m_rest.isEmpty() && IsAlteration(m_rest.front()) &&
                            (m_rest.size() == 1 || !IsDigit(m_rest[1]));
        if (!behind) {
            m_out += digits;
            return true;
        }
        Bracket(m_rest.front(), digits);
        m_rest = m_rest.sliced(1);
        return true;
    }

    bool Altered()
    {
        const QChar alteration = m_rest.front();
        m_rest = m_rest.sliced(1);
        const QString digits = Digits();
        if (digits.isEmpty())
            return false;
        Bracket(alteration, digits);
        return true;
    }

    void Bracket(QChar alteration, const QString& digits)
    {
        m_out += u'(';
        m_out += IsFlat(alteration) ? u'b' : u'#';
        m_out += digits + u')';
    }

    /// What a major seventh and what is built on it are called.
    static QString Major(const QString& digits)
    {
        if (digits.isEmpty() || digits == u"5")
            return {};
        if (digits == u"7")
            return u"7+"_qs;
        if (digits == u"6")
            return digits;
        return u"7+("_qs + digits + u')';
    }

    bool Brackets()
    {
        const qsizetype end = m_rest.indexOf(u')');
        if (end < 0)
            return false;
        const QStringView inside = m_rest.sliced(1, end - 1);
        m_rest = m_rest.sliced(end + 1);
        QStringList plain;
        QString altered;
        for (const QStringView part : inside.tokenize(u'/')) {
            for (const QStringView item : part.tokenize(u',')) {
                const QStringView tension = item.trimmed();
                if (tension.isEmpty() || tension.contains(u'('))
                    return false;
                const std::optional<QString> spelled = SuffixSpeller(tension).Spell();
                if (!spelled || spelled->isEmpty())
                    return false;
                if (spelled->contains(u'('))
                    altered += *spelled;
                else
                    plain += *spelled;
            }
        }
        if (!plain.isEmpty())
            m_out += u'(' + plain.join(u',') + u')';
        m_out += altered;
        return true;
    }

    /// "6/9" and "7,9": a number joined to the one before; "7/b9" gets brackets.
    bool Joined()
    {
        const QChar joint = m_rest.front();
        m_rest = m_rest.sliced(1);
        if (m_rest.isEmpty())
            return false;
        if (IsAlteration(m_rest.front()))
            return Altered();
        if (!IsDigit(m_rest.front()))
            return false;
        if (m_rest.size() > 1 && IsAlteration(m_rest[1]))
            return Number();
        m_out += joint;
        return Number();
    }

    bool Word()
    {
        if (Take(u"maj") || Take(u"Maj") || Take(u"MAJ") || Take(u"M")) {
            m_out += Major(Digits());
            return true;
        }
        if (Take(u"\u0394") || Take(u"\u25B3") || Take(u"^")) {
            const QString digits = Digits();
            m_out += Major(digits.isEmpty() ? u"7"_qs : digits);
            return true;
        }
        if (Take(u"min") || Take(u"mi") || Take(u"m"))
            return Put(u"m");
        if (Take(u"dim") || Take(u"\u00B0") || Take(u"\u00BA") || TakeSmallCircle())
            return Put(u"\u00BA");
        if (Take(u"\u00F8") || Take(u"\u00D8")) {
            Take(u"7");
            return Put(u"m7(b5)");
        }
        if (Take(u"aug") || Take(u"+"))
            return Put(u"+");
        if (Take(u"sus"))
            return Put(u"sus");
        if (Take(u"alt"))
            return Put(u"(#5)(b9)");
        if (Take(u"-"))
            return Put(u"-");
        return Counted();
    }

    /// "add9", "no3": words that need a number.
    bool Counted()
    {
        const bool adds = Take(u"add");
        if (!adds && !Take(u"no") && !Take(u"omit"))
            return false;
        if (adds && !m_rest.isEmpty() && IsAlteration(m_rest.front()))
            return Altered();
        const QString digits = Digits();
        if (digits.isEmpty())
            return false;
        m_out += (adds ? u"("_qs : u"(no"_qs) + digits + u')';
        return true;
    }

    /// An "o" that stands for the circle, not for a word's letter.
    bool TakeSmallCircle()
    {
        const bool circle = m_rest == u"o" || m_rest.startsWith(u"o7") || m_rest.startsWith(u"o(");
        return circle && Take(u"o");
    }

    bool Put(QStringView text)
    {
        m_out += text;
        return true;
    }

    QStringView m_rest;
    QString m_out;
};

} // namespace

std::optional<QString> SpellSuffix(QStringView suffix)
{
    return SuffixSpeller(suffix).Spell();
}

} // namespace Songbook
