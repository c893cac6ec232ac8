#include "songbook/FileNames.h"

#include "songbook/SongDraft.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

namespace Songbook {

namespace {

/// Systems allow 255 bytes; a number and an ending follow.
constexpr qsizetype LongestName = 200;

bool IsForbidden(char32_t sign)
{
    static constexpr QStringView signs = u"<>:\"/\\|?*";
    if (sign < 0x20 || sign == 0x7F)
        return true;
    if (sign < 0x80)
        return signs.contains(QChar(static_cast<char16_t>(sign)));
    if (sign == QChar::ReplacementCharacter)
        return true;
    const QChar::Category category = QChar::category(sign);
    // Unseen signs: names that look alike and are not, or that read backwards.
    return category == QChar::Other_Control || category == QChar::Other_Format ||
           category == QChar::Other_Surrogate || category == QChar::Other_NotAssigned ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

/// Cuts behind a whole letter.
void Shorten(QString& name)
{
    if (name.toUtf8().size() <= LongestName)
        return;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, name);
    qsizetype end = 0;
    while (letters.toNextBoundary() >= 0 &&
           QStringView(name).first(letters.position()).toUtf8().size() <= LongestName)
        end = letters.position();
    name.truncate(end);
}

/// Names that belong to devices on one system, whatever ending follows.
bool IsDevice(const QString& name)
{
    static const QRegularExpression device(
        u"^(?:CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(?:COM|LPT)[0-9¹²³])\\s*(?:\\.|$)"_qs,
        QRegularExpression::CaseInsensitiveOption);
    return device.match(name).hasMatch();
}

} // namespace

QString SafeName(const QString& title)
{
    QString name;
    for (const char32_t sign : title.normalized(QString::NormalizationForm_C).toUcs4())
        name += IsForbidden(sign) ? u" "_qs : QString::fromUcs4(&sign, 1);
    name = name.simplified();
    Shorten(name);
    // A dot in front hides a file, one at the end is lost on one system, a hyphen in front looks
    // like an option.
    static const QRegularExpression edges(u"^[\\s.\\-~]+|[\\s.]+$"_qs);
    name.remove(edges);
    if (name.isEmpty())
        name = NoTitle;
    return IsDevice(name) ? QString(u'_' + name) : name;
}

QString FileNames::For(const QString& title, const QString& ending)
{
    const QString name = SafeName(title);
    QString given = name;
    const auto key = [](const QString& text) {
        return text.normalized(QString::NormalizationForm_KC).toCaseFolded();
    };
    for (int number = 2; m_given.contains(key(given)); ++number)
        given = name + u" (" + QString::number(number) + u')';
    m_given.insert(key(given));
    return given + ending;
}

} // namespace Songbook
