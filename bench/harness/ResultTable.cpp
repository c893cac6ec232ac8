#include "harness/ResultTable.h"

#include <QStringList>

#include <algorithm>

namespace {

QString Number(double number)
{
    return QString::number(number, 'f', number < 10 ? 2 : number < 100 ? 1 : 0);
}

QString Scaled(double value, double step, std::initializer_list<const char16_t*> units)
{
    const auto* unit = units.begin();
    while (value >= step && unit + 1 != units.end()) {
        value /= step;
        ++unit;
    }
    return Number(value) + u' ' + QString::fromUtf16(*unit);
}

} // namespace

QString ResultTable::Time(double nanoseconds)
{
    return Scaled(nanoseconds, 1000, {u"ns", u"µs", u"ms", u"s"});
}

QString ResultTable::Bytes(double bytes)
{
    return Scaled(bytes, 1024, {u"B", u"KiB", u"MiB", u"GiB"});
}

void ResultTable::Add(const QString& work, double measured, const QString& against,
                      double reference, Aim aim)
{
    const double ratio = aim.kind == Aim::AtLeast ? reference / measured : measured / reference;
    AddText(work, Time(measured), against + u": " + Time(reference), ratio, aim);
}

void ResultTable::AddText(const QString& work, const QString& measured, const QString& against,
                          double ratio, Aim aim)
{
    QString wanted;
    QString reached;
    if (aim.kind != Aim::None) {
        const bool atLeast = aim.kind == Aim::AtLeast;
        wanted = (atLeast ? u">= " : u"<= ") + Number(aim.ratio);
        reached = (atLeast ? ratio >= aim.ratio : ratio <= aim.ratio) ? u"yes"_qs : u"no"_qs;
    }
    m_rows.append({{work, measured, against, Number(ratio), wanted, reached}});
}

QString ResultTable::ToText() const
{
    const QStringList head{u"work"_qs,  u"measured"_qs, u"reference"_qs,
                           u"ratio"_qs, u"aim"_qs,      u"ok?"_qs};
    QList<QStringList> lines{head};
    for (const Row& row : m_rows)
        lines.append(row.cells);
    QList<qsizetype> widths(head.size(), 0);
    for (const QStringList& line : lines)
        for (qsizetype i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    QStringList rule;
    for (const qsizetype width : widths)
        rule.append(QString(width, u'-'));
    lines.insert(1, rule);

    QString text;
    for (const QStringList& line : lines) {
        text += u'|';
        for (qsizetype i = 0; i < line.size(); ++i)
            text += u' ' + line[i].leftJustified(widths[i]) + u" |";
        text += u'\n';
    }
    return text;
}
