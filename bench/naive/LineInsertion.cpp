#include "naive/LineInsertion.h"

#include <QRegularExpression>
#include <QTextCursor>

namespace {

constexpr qreal Points = 17;

} // namespace

void LineInsertion::Show(QTextEdit& box, const QString& song, std::int16_t deslocamento)
{
    static const QRegularExpression chord(QStringLiteral("[A-G](#|b)?"));
    box.clear();
    QTextCursor cursor(box.document());
    const QStringList lines = song.split(u"\r\n"_qs);
    for (const QString& line : lines) {
        QTextCharFormat format;
        format.setFontPointSize(Points);
        QString shown = line;
        if (m_engine.Linha_Cifra(line)) {
            format.setForeground(Qt::blue);
            format.setFontWeight(QFont::Bold);
            qsizetype shift = 0;
            for (auto found = chord.globalMatch(line); found.hasNext();) {
                const auto match = found.next();
                const auto note = m_engine.Procura_Nota(match.captured(), m_engine.Tabela_Nota);
                const QString moved = m_engine.Transpoe_Nota(note, deslocamento);
                shown.replace(match.capturedStart() + shift, match.capturedLength(), moved);
                shift += moved.size() - match.capturedLength();
            }
        }
        cursor.insertText(shown, format);
        cursor.insertBlock();
    }
}
