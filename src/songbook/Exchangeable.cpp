#include "songbook/Exchangeable.h"

#include "songbook/SheetRows.h"
#include "store/CodePage.h"

namespace Songbook {

namespace {

/// @return what stands for a sign that markup is made of; the sign itself for others
QChar WithoutMarkup(QChar sign)
{
    if (sign == u'<')
        return u'\u2039';
    if (sign == u'>')
        return u'\u203A';
    return sign == u'&' ? u'e' : sign;
}

/// @return the letter that a letter with marks is built on, where the code page has it; else "?"
QString NearestLetter(QStringView letter)
{
    const QString parts = letter.toString().normalized(QString::NormalizationForm_KD);
    const QString base = parts.left(1);
    return !base.isEmpty() && base.front() >= u' ' && CodePage::Holds(base) ? base : u"?"_qs;
}

bool IsControl(QChar sign)
{
    return (sign < u' ' && sign != u'\t' && sign != u'\r' && sign != u'\n') || sign == u'\uFFFE' ||
           sign == u'\uFFFF';
}

class Narrowing
{
public:
    explicit Narrowing(Remarks& remarks)
        : m_remarks(remarks)
    {
    }

    QString Text(const QString& text)
    {
        const QString composed = text.normalized(QString::NormalizationForm_C);
        QString narrow;
        for (qsizetype i = 0; i < composed.size(); ++i) {
            const bool pair = composed[i].isHighSurrogate() && i + 1 < composed.size() &&
                              composed[i + 1].isLowSurrogate();
            const QStringView sign = QStringView(composed).sliced(i, pair ? 2 : 1);
            const QString held = Sign(sign);
            if (held != sign)
                Tell(sign, held);
            narrow += held;
            i += pair ? 1 : 0;
        }
        // In lyrics the mark is written by itself, and no line of theirs holds a break.
        return WithoutBreakMark(narrow).replace(u"\r\n"_qs, u"[br]"_qs);
    }

    QString Sheet(const QString& text)
    {
        QStringList rows = text.split(u"\r\n"_qs);
        for (QString& row : rows)
            row = IsChordRow(row) ? Text(ChordRow(row)) : Text(row);
        return rows.join(u"\r\n");
    }

private:
    /// An exchange file writes its line breaks so.
    QString WithoutBreakMark(const QString& text)
    {
        if (!text.contains(u"[br]"))
            return text;
        m_remarks.Lost(0, u"o formato .mld não guarda \"[br]\": ficou \"(br)\""_qs);
        return QString(text).replace(u"[br]"_qs, u"(br)"_qs);
    }

    static QString Sign(QStringView sign)
    {
        if (sign.size() == 1) {
            if (IsControl(sign.front()))
                return u" "_qs;
            const QChar replaced = WithoutMarkup(sign.front());
            if (replaced != sign.front())
                return replaced;
        }
        return CodePage::Holds(sign) ? sign.toString() : NearestLetter(sign);
    }

    /// Among chords only another chord character can stand for "<" and ">".
    QString ChordRow(const QString& row)
    {
        QString changed = row;
        changed.replace(u'<', u'-').replace(u'>', u'-');
        if (changed != row)
            m_remarks.Lost(0,
                           u"o formato .mld não guarda \"<\" e \">\": ficou \"-\" nos acordes"_qs);
        return changed;
    }

    void Tell(QStringView sign, const QString& held)
    {
        const bool shown = sign.size() > 1 || sign.front().isPrint();
        const QString code =
            u"U+%1"_qs.arg(uint{sign.front().unicode()}, 4, 16, QChar(u'0')).toUpper();
        m_remarks.Lost(0, u"o formato .mld não guarda \"%1\": ficou \"%2\""_qs.arg(
                              shown ? sign.toString() : code, held));
    }

    Remarks& m_remarks;
};

} // namespace

ExchangeSong MadeExchangeable(const ExchangeSong& song, Remarks& remarks)
{
    Narrowing narrowing(remarks);
    ExchangeSong held = song;
    for (std::optional<QString>* field :
         {&held.titulo, &held.referencia, &held.tom, &held.variacao}) {
        if (*field)
            *field = narrowing.Text(**field);
    }
    for (std::optional<QString>* sheet : {&held.letra1, &held.letra2}) {
        if (*sheet)
            *sheet = narrowing.Sheet(**sheet);
    }
    for (QString& theme : held.temas)
        theme = narrowing.Text(theme);
    return held;
}

} // namespace Songbook
