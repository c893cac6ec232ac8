#include "mld/ExchangeWriter.h"

#include <algorithm>

namespace {

QString LineBreak()
{
    return QStringLiteral("\r\n");
}

/// Stands for a line break inside lyrics: each field stays on one line.
QString BreakMark()
{
    return QStringLiteral("[br]");
}

enum class Breaks { Kept, Marked };

/// Appends text without "<" and ">". A line break that holds one of them counts all the same.
void AppendClean(QString& document, QString text, Breaks breaks)
{
    text.remove(u'<').remove(u'>');
    if (breaks == Breaks::Marked)
        text.replace(LineBreak(), BreakMark());
    document.append(text);
}

void Open(QString& document, QStringView name)
{
    document.append(u"       <").append(name).append(u'>');
}

void Close(QString& document, QStringView name)
{
    document.append(u"</").append(name).append(u'>').append(LineBreak());
}

void AppendText(QString& document, QStringView name, const std::optional<QString>& text,
                QStringView whenMissing, Breaks breaks = Breaks::Kept)
{
    Open(document, name);
    if (text)
        AppendClean(document, ExchangeWriter::Composed(*text), breaks);
    else
        document.append(whenMissing);
    Close(document, name);
}

void AppendAsStored(QString& document, QStringView name, const std::optional<QString>& text,
                    QStringView whenMissing)
{
    Open(document, name);
    if (text)
        document.append(ExchangeWriter::Composed(*text));
    else
        document.append(whenMissing);
    Close(document, name);
}

} // namespace

QString ExchangeWriter::Head()
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>\r\n<musicas>\r\n");
}

QString ExchangeWriter::Tail()
{
    return QStringLiteral("</musicas>");
}

QString ExchangeWriter::Composed(const QString& field)
{
    // What lies below the first mark is composed already, and nearly every text is.
    constexpr char16_t FirstMark = 0x0300;
    const bool isComposed = std::all_of(field.begin(), field.end(),
                                        [](QChar unit) { return unit.unicode() < FirstMark; });
    return isComposed ? field : field.normalized(QString::NormalizationForm_C);
}

void ExchangeWriter::Append(QString& document, const ExchangeSong& song)
{
    document.append(u"   <musica>\r\n");
    AppendText(document, u"titulo", song.titulo, u"Sem Título");
    AppendText(document, u"referencia", song.referencia, u"Sem Referência");
    AppendText(document, u"letra1", song.letra1, u"Sem Letra", Breaks::Marked);
    AppendText(document, u"letra2", song.letra2, u"Sem Letra", Breaks::Marked);
    AppendAsStored(document, u"tom", song.tom, u"C");
    AppendAsStored(document, u"variacao", song.variacao, u"");
    Open(document, u"categoria");
    document.append(QString::number(song.categoria.value_or(1)));
    Close(document, u"categoria");
    document.append(u"       <temas>\r\n");
    for (const QString& tema : song.temas)
        document.append(u"           <descricao>")
            .append(Composed(tema))
            .append(u"</descricao>\r\n");
    document.append(u"       </temas>\r\n   </musica>\r\n");
}

QString ExchangeWriter::FileName(const QString& titulo)
{
    QString name = titulo;
    for (const QChar unfit : {u'|', u'>', u'<', u'"', u'?', u':', u'*', u'\\', u'/'})
        name.remove(unfit);
    name.replace(u' ', u'_');
    return name + QStringLiteral(".mld");
}
