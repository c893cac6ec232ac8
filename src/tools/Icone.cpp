// Draws a picture as PNG: melodario-icone PICTURE.svg SIZE FILE
// SIZE is the pixels of a square, or a multiple of the picture's own size, "2x". Part of the build,
// so that icons in eight sizes need not lie in the repository.

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

int Fail(const QString& words)
{
    QTextStream(stderr) << words << Qt::endl;
    return 1;
}

QSize Size(QByteArray asked, QSize own)
{
    if (asked.endsWith('x')) {
        asked.chop(1);
        return own * asked.toInt();
    }
    return {asked.toInt(), asked.toInt()};
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4)
        return Fail(QStringLiteral("melodario-icone PICTURE.svg SIZE FILE"));
    const QString picture = QFile::decodeName(argv[1]);
    QSvgRenderer renderer(picture);
    const QSize size = Size(argv[2], renderer.defaultSize());
    if (!renderer.isValid() || size.isEmpty())
        return Fail(u"no picture to draw: " + picture);
    QImage icon(size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    renderer.render(&painter);
    painter.end();
    const QString file = QFile::decodeName(argv[3]);
    return icon.save(file, "PNG") ? 0 : Fail(u"not written: " + file);
}
