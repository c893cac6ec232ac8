#include "jet/JetFields.h"

#include "jet/JetFailure.h"
#include "store/CodePage.h"

#include <QtEndian>

#include <cmath>

namespace {

using RowStream::Field;

constexpr quint32 OurCodePage = 1252;
constexpr qsizetype UnitSize = 2; // bytes

[[noreturn]] void Refuse(const Table& table, const Column& column, const QString& why)
{
    JetFailure::Throw(
        u"O catálogo antigo tem, na coluna %1.%2, %3."_qs.arg(table.name, column.name, why));
}

QString WideText(QByteArrayView bytes)
{
    QString text(bytes.size() / UnitSize, Qt::Uninitialized);
    // No decoder: it would take a mark at the beginning for its own.
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(qFromLittleEndian<quint16>(bytes.data() + i * UnitSize));
    return text;
}

Value ReadText(FrameContent& row, Field field, const Table& table, const Column& column,
               quint32 codePage)
{
    if (field == Field::PlainText) {
        if (codePage != 0 && codePage != OurCodePage)
            Refuse(table, column, u"um texto na página de código %1"_qs.arg(codePage));
        return CodePage::ToUnicode(row.Bytes());
    }
    const QByteArrayView bytes = row.Bytes();
    const QString text = WideText(bytes);
    if (bytes.size() % UnitSize != 0 || !text.isValidUtf16())
        Refuse(table, column, u"um texto com meias letras"_qs);
    return text;
}

bool Fits(Field field, ColumnType type)
{
    switch (field) {
    case Field::Null:
        return true;
    case Field::Whole:
        return type == ColumnType::Long || type == ColumnType::Integer;
    case Field::WideText:
    case Field::PlainText:
        return type == ColumnType::Text;
    case Field::Date:
        return type == ColumnType::Date;
    case Field::Other:
        break;
    }
    return false;
}

} // namespace

QDate JetFields::DayOf(double days)
{
    const QDate zero(1899, 12, 30);
    const QDate first(100, 1, 1);
    const QDate last(9999, 12, 31);
    constexpr double Beyond = 1e7; // more days than any
    if (!std::isfinite(days) || std::abs(days) > Beyond)
        return {};
    const QDate day = zero.addDays(static_cast<qint64>(std::trunc(days)));
    return day < first || day > last ? QDate() : day;
}

Value JetFields::Read(FrameContent& row, const Table& table, const Column& column, quint32 codePage)
{
    const auto field = static_cast<Field>(row.Byte());
    if (!Fits(field, column.type))
        Refuse(table, column, u"um valor de outro tipo"_qs);
    switch (field) {
    case Field::Whole:
        return qint64{row.Signed()};
    case Field::WideText:
    case Field::PlainText:
        return ReadText(row, field, table, column, codePage);
    case Field::Date: {
        const QDate day = DayOf(row.Real());
        if (!day.isValid())
            Refuse(table, column, u"uma data que não existe"_qs);
        return day;
    }
    default:
        return {};
    }
}
