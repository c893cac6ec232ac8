#include "songbook/PlainTextWriter.h"

#include "songbook/SongDraft.h"

namespace Songbook {

namespace {

QString Line(QStringView name, const QString& value)
{
    return value.isEmpty() ? QString() : name + u": " + value + u"\r\n";
}

} // namespace

QString WritePlainText(const ExchangeSong& song, int version)
{
    const std::optional<QString>& text = version == 2 ? song.letra2 : song.letra1;
    const QString key = song.tom.value_or(u"C"_qs) + song.variacao.value_or(QString());
    QString written =
        Line(u"T\u00EDtulo", song.titulo.value_or(NoTitle)) +
        Line(u"Refer\u00EAncia", song.referencia.value_or(NoReference)) + Line(u"Tom", key) +
        Line(u"Categoria", song.categoria.value_or(1) == 2 ? u"Secular"_qs : u"Religiosa"_qs) +
        Line(u"Temas", song.temas.join(u"; "));
    written += u"\r\n" + text.value_or(u"Sem Letra"_qs) + u"\r\n";
    return written;
}

} // namespace Songbook
