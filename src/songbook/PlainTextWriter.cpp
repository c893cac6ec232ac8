#include "songbook/PlainTextWriter.h"

#include "songbook/SongDraft.h"

namespace Songbook {

namespace {

/// @return a line of the head; a value's own line ends would end it
QString Line(QStringView name, const QString& value)
{
    QString unbroken = value;
    unbroken.replace(u"\r\n"_qs, u" "_qs).replace(u'\r', u' ').replace(u'\n', u' ');
    return name + u": " + unbroken + u"\r\n";
}

QString LineIfSaid(QStringView name, const QString& value)
{
    return value.isEmpty() ? QString() : Line(name, value);
}

} // namespace

QString WritePlainText(const ExchangeSong& song, int version)
{
    const std::optional<QString>& text = version == 2 ? song.letra2 : song.letra1;
    const QString key = song.tom.value_or(u"C"_qs) + song.variacao.value_or(QString());
    // The title is written even if it is empty: by it a song is told from a bare text.
    QString written =
        Line(u"T\u00EDtulo", song.titulo.value_or(NoTitle)) +
        LineIfSaid(u"Refer\u00EAncia", song.referencia.value_or(NoReference)) +
        LineIfSaid(u"Tom", key) +
        Line(u"Categoria", song.categoria.value_or(1) == 2 ? u"Secular"_qs : u"Religiosa"_qs) +
        LineIfSaid(u"Temas", song.temas.join(u"; "));
    written += u"\r\n" + text.value_or(u"Sem Letra"_qs) + u"\r\n";
    return written;
}

const QString& SongsApart()
{
    static const QString line(72, u'=');
    return line;
}

} // namespace Songbook
