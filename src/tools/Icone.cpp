// Draws a picture at one size: melodario-icone PICTURE.svg SIZE ICON.png
// Part of the build, so that icons in eight sizes need not lie in the repository.

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

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4)
        return Fail(QStringLiteral("melodario-icone PICTURE.svg SIZE ICON.png"));
    const QString picture = QFile::decodeName(argv[1]);
    const int size = QByteArray(argv[2]).toInt();
    QSvgRenderer renderer(picture);
    if (!renderer.isValid() || size <= 0)
        return Fail(u"no picture to draw: " + picture);
    QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    renderer.render(&painter);
    painter.end();
    const QString file = QFile::decodeName(argv[3]);
    return icon.save(file, "PNG") ? 0 : Fail(u"not written: " + file);
}
