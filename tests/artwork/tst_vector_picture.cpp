// Built twice: for pictures drawn from SVG, and for the bitmaps that stand in where Qt has no SVG
// module. Both have to put the same colours in the same places.

#include "artwork/VectorPicture.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QColor Left(0x00, 0x66, 0xcc);
const QColor Right(0x2b, 0x34, 0x40);

#ifdef MELODARIO_BITMAPS
/// Sixteen by eight pixels, the left half of one colour and the right half of another. As the build
/// does it: bitmaps under the SVG file's name.
void WritePicture(const QDir& folder)
{
    for (int scale = 1; scale <= 4; ++scale) {
        QImage image(16 * scale, 8 * scale, QImage::Format_ARGB32_Premultiplied);
        image.fill(Right);
        QPainter(&image).fillRect(0, 0, 8 * scale, 8 * scale, Left);
        const QString at = scale == 1 ? QString() : u"@%1x"_qs.arg(scale);
        QVERIFY(image.save(folder.filePath(u"half"_qs + at + u".svg"_qs), "PNG"));
    }
}
#else
/// Sixteen by eight pixels, the left half of one colour and the right half of another.
void WritePicture(const QDir& folder)
{
    QFile file(folder.filePath(u"half.svg"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<svg xmlns='http://www.w3.org/2000/svg' width='16' height='8' viewBox='0 0 16 8'>"
               "<rect x='0' y='0' width='8' height='8' fill='#0066cc'/>"
               "<rect x='8' y='0' width='8' height='8' fill='#2b3440'/></svg>");
}
#endif

} // namespace

class tst_vector_picture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aMissingFileDrawsNothing();
    void theOwnSizeIsThatAt100Percent();
    void coloursStandWhereTheyBelong_data();
    void coloursStandWhereTheyBelong();
    void edgesAreSharpWhereTheScaleIsWhole();
    void coloursAreExchanged();

private:
    QString Path() const { return m_folder.filePath(u"half.svg"_qs); }

    QTemporaryDir m_folder;
};

void tst_vector_picture::init()
{
    WritePicture(QDir(m_folder.path()));
}

void tst_vector_picture::aMissingFileDrawsNothing()
{
    const VectorPicture missing(m_folder.filePath(u"none.svg"_qs));
    QVERIFY(!missing.IsValid());
    QVERIFY(missing.DefaultSize().isEmpty());
    QVERIFY(!VectorPicture().IsValid());

    QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QImage before = image;
    QPainter painter(&image);
    missing.Render(painter, QRectF(image.rect()));
    VectorPicture().Render(painter, QRectF(image.rect()));
    painter.end();
    QCOMPARE(image, before);
}

void tst_vector_picture::theOwnSizeIsThatAt100Percent()
{
    const VectorPicture picture(Path());
    QVERIFY(picture.IsValid());
    QCOMPARE(picture.DefaultSize(), QSize(16, 8));
}

void tst_vector_picture::coloursStandWhereTheyBelong_data()
{
    QTest::addColumn<QSize>("canvas");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QRectF>("place");
    QTest::addColumn<bool>("stretched");
    QTest::addColumn<QPoint>("left");
    QTest::addColumn<QPoint>("right");
    QTest::addColumn<QPoint>("empty");

    const QPoint nowhere(-1, -1);
    QTest::newRow("own size") << QSize(16, 8) << 1.0 << QRectF(0, 0, 16, 8) << false << QPoint(2, 2)
                              << QPoint(13, 5) << nowhere;
    QTest::newRow("half size") << QSize(8, 4) << 1.0 << QRectF(0, 0, 8, 4) << false << QPoint(1, 1)
                               << QPoint(6, 2) << nowhere;
    QTest::newRow("ten times") << QSize(160, 80) << 1.0 << QRectF(0, 0, 160, 80) << false
                               << QPoint(70, 40) << QPoint(90, 40) << nowhere;
    QTest::newRow("at 200 percent") << QSize(32, 16) << 2.0 << QRectF(0, 0, 16, 8) << false
                                    << QPoint(14, 8) << QPoint(17, 8) << nowhere;
    QTest::newRow("in a square it stands in the middle")
        << QSize(16, 16) << 1.0 << QRectF(0, 0, 16, 16) << false << QPoint(2, 8) << QPoint(13, 8)
        << QPoint(2, 1);
    QTest::newRow("stretched it fills the square")
        << QSize(16, 16) << 1.0 << QRectF(0, 0, 16, 16) << true << QPoint(2, 1) << QPoint(13, 14)
        << nowhere;
    QTest::newRow("away from the corner") << QSize(40, 20) << 1.0 << QRectF(20, 10, 16, 8) << false
                                          << QPoint(22, 12) << QPoint(34, 16) << QPoint(10, 5);
}

void tst_vector_picture::coloursStandWhereTheyBelong()
{
    QFETCH(QSize, canvas);
    QFETCH(qreal, scale);
    QFETCH(QRectF, place);
    QFETCH(bool, stretched);
    QFETCH(QPoint, left);
    QFETCH(QPoint, right);
    QFETCH(QPoint, empty);
    QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    VectorPicture(Path()).Render(painter, place,
                                 stretched ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio);
    painter.end();

    QCOMPARE(image.pixelColor(left), Left);
    QCOMPARE(image.pixelColor(right), Right);
    if (image.rect().contains(empty))
        QCOMPARE(qAlpha(image.pixel(empty)), 0);
}

void tst_vector_picture::edgesAreSharpWhereTheScaleIsWhole()
{
    for (int scale = 1; scale <= 4; ++scale) {
        QImage image(16 * scale, 8 * scale, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        VectorPicture(Path()).Render(painter, QRectF(image.rect()));
        painter.end();
        QCOMPARE(image.pixelColor(8 * scale - 1, 4), Left);
        QCOMPARE(image.pixelColor(8 * scale, 4), Right);
    }
}

void tst_vector_picture::coloursAreExchanged()
{
    const VectorPicture picture(Path(),
                                {{Left, QColor(0xf0, 0xe0, 0xd0)}, {Right, QColor(Qt::white)}});
    QImage image(32, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.Render(painter, QRectF(0, 0, 32, 16));
    painter.end();
    QCOMPARE(image.pixelColor(4, 4), QColor(0xf0, 0xe0, 0xd0));
    QCOMPARE(image.pixelColor(28, 4), QColor(Qt::white));
}

QTEST_MAIN(tst_vector_picture)
#include "tst_vector_picture.moc"
