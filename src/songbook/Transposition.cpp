#include "songbook/Transposition.h"

#include "chords/ChordLine.h"
#include "songbook/ChordName.h"
#include "songbook/SheetRows.h"

namespace Songbook {

namespace {

/// The words of chord rows, shifted by the engine that the viewer shows chords with.
class Shift
{
public:
    Shift(int semitones, Remarks& remarks)
        : m_written(0)
        , m_shifted(static_cast<std::int16_t>(semitones))
        , m_remarks(remarks)
    {
    }

    /// @return the row with each word in its column, or one blank behind the one before it
    QString Row(const QString& row)
    {
        QString shifted;
        for (const Word& word : WordsOf(row)) {
            const qsizetype free = shifted.isEmpty() ? 0 : shifted.size() + 1;
            shifted += QString(qMax(free, word.column) - shifted.size(), u' ');
            shifted += Parts(word.text);
        }
        const qsizetype blanksBehind = row.size() - 1 - LastSign(row);
        return shifted + QString(blanksBehind, u' ');
    }

private:
    static qsizetype LastSign(const QString& row)
    {
        qsizetype last = row.size() - 1;
        while (last >= 0 && row[last] == u' ')
            --last;
        return last;
    }

    /// The sheet passes over percent signs.
    QString Parts(QStringView word)
    {
        QStringList parts;
        for (const QStringView part : word.split(u'%'))
            parts += Chord(part);
        return parts.join(u'%');
    }

    QString Chord(QStringView word)
    {
        if (Rewritten(word, m_written) == word)
            return Rewritten(word, m_shifted);
        // Something in it belongs to no note: the engine would leave it out.
        if (const auto spelled = SpellChord(word, ChordSpelling::Marked))
            return Rewritten(*spelled, m_shifted);
        m_remarks.Lost(0, u"\"%1\", entre os acordes, não foi transposto"_qs.arg(Excerpt(word)));
        return word.toString();
    }

    QString Rewritten(QStringView word, const Chords::ShiftedNames& names) const
    {
        using namespace Chords;
        SheetBuffer sheet(0);
        sheet.Reserve(SheetInk::Room(word));
        const LineEnd end =
            WalkChordLine(word, m_notes, SheetInk(word, names, sheet), sheet.Next());
        sheet.Advance(end.written);
        return sheet.Take();
    }

    Chords::NoteTable m_notes;
    Chords::ShiftedNames m_written;
    Chords::ShiftedNames m_shifted;
    Remarks& m_remarks;
};

/// @return where the line that begins at an index ends, and in length how long its mark is
qsizetype EndOfLine(const QString& text, qsizetype from, qsizetype& length)
{
    const qsizetype pair = text.indexOf(u"\r\n", from);
    const qsizetype sign = text.indexOf(QChar(Chords::Separator), from);
    length = 1;
    if (sign >= 0 && (pair < 0 || sign < pair))
        return sign;
    length = pair < 0 ? 0 : 2;
    return pair < 0 ? text.size() : pair;
}

void ShiftKey(std::optional<QString>& tom, int semitones, Remarks& remarks)
{
    if (!tom || tom->isEmpty())
        return;
    QString table;
    const std::int16_t index = Funcoes::Procura_Nota(*tom, table);
    if (index == 0) {
        remarks.Lost(0, u"o tom \"%1\" não foi transposto"_qs.arg(Excerpt(*tom)));
        return;
    }
    const Funcoes::Escala& names = table == u"1" ? Funcoes::Notas : Funcoes::Notas_Mais;
    tom = names[static_cast<std::size_t>(Funcoes::Corrige_Oitava(index + semitones))];
}

} // namespace

QString TransposedSheet(const QString& text, int semitones, Remarks& remarks)
{
    if (semitones == 0)
        return text;
    Shift shift(semitones, remarks);
    QString shifted;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype mark = 0;
        const qsizetype end = EndOfLine(text, at, mark);
        const QString row = text.mid(at, end - at);
        shifted += IsChordRow(row) ? shift.Row(row) : row;
        shifted += QStringView(text).sliced(end, mark);
        at = end + mark;
    }
    return shifted;
}

ExchangeSong TransposedSong(const ExchangeSong& song, int semitones, Remarks& remarks)
{
    if (semitones == 0)
        return song;
    ExchangeSong shifted = song;
    for (std::optional<QString>* text : {&shifted.letra1, &shifted.letra2}) {
        if (*text)
            *text = TransposedSheet(**text, semitones, remarks);
    }
    ShiftKey(shifted.tom, semitones, remarks);
    return shifted;
}

} // namespace Songbook
