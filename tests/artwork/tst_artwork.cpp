#include "artwork/Artwork.h"

#include <QDirIterator>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

namespace {

const QStringList Viewer = {
    u"cmdSobe"_qs,         u"cmdDesce"_qs,         u"cmdTomOriginal"_qs, u"cmdLetra"_qs,
    u"cmdAumentaFonte"_qs, u"cmdDiminuiFonte"_qs,  u"cmdAutoRolagem"_qs, u"cmdAutoRolagem2"_qs,
    u"cmdAnterior"_qs,     u"cmdProxima"_qs,       u"cmdEditar"_qs,      u"cmdSalvar"_qs,
    u"cmdDescartar"_qs,    u"cmdFechar"_qs,        u"cmdMinimizar"_qs,   u"cmdSobe2"_qs,
    u"cmdTomOriginal2"_qs, u"cmdDesce2"_qs,        u"cmdLetra2"_qs,      u"cmdAumentaFonte2"_qs,
    u"cmdAnterior2"_qs,    u"cmdDiminuiFonte2"_qs, u"cmdProxima2"_qs,    u"cmdDescartar2"_qs};

const QStringList WithTwins = {u"cmdSobe"_qs,     u"cmdTomOriginal"_qs,  u"cmdDesce"_qs,
                               u"cmdLetra"_qs,    u"cmdAumentaFonte"_qs, u"cmdDiminuiFonte"_qs,
                               u"cmdAnterior"_qs, u"cmdProxima"_qs,      u"cmdDescartar"_qs};

QImage Rendered(const QString& path, QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(path);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

bool IsInked(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y)) > 0;
}

/// How many pixels carry anything at all.
int Inked(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += IsInked(image, x, y) ? 1 : 0;
    return count;
}

/// Whether the outermost ring of pixels is empty: nothing was cut off at the picture's edge.
bool HasFreeEdge(const QImage& image)
{
    const int last = image.width() - 1;
    for (int i = 0; i <= last; ++i) {
        if (IsInked(image, i, 0) || IsInked(image, i, last) || IsInked(image, 0, i) ||
            IsInked(image, last, i))
            return false;
    }
    return true;
}

} // namespace

class TestArtwork : public QObject
{
    Q_OBJECT

private slots:
    void LinkingIsEnoughToHaveThePictures()
    {
        QVERIFY(QFile::exists(u":/artwork/logo.svg"_qs));
        QCOMPARE(Artwork::Path(u"viewer/cmdSobe"_qs), u":/artwork/viewer/cmdSobe.svg"_qs);
    }

    void EveryNamedPictureIsThere_data()
    {
        QTest::addColumn<QString>("name");
        QStringList names = {u"logo"_qs,    u"melodario"_qs,      u"splash"_qs,
                             u"teclado"_qs, u"teclado-fechar"_qs, u"mensagem"_qs};
        for (const auto& key : {u"pesquisa"_qs, u"cadastro"_qs, u"lista"_qs, u"exportar"_qs,
                                u"importar"_qs, u"sobre"_qs, u"sair"_qs})
            names << u"toolbar/"_qs + key;
        for (const auto& button : Viewer)
            names << u"viewer/"_qs + button;
        for (const auto& place : {u"SupEsq"_qs, u"SupDir"_qs, u"InfEsq"_qs, u"InfDir"_qs, u"Sup"_qs,
                                  u"Inf"_qs, u"Esq"_qs, u"Dir"_qs})
            names << u"frame/imgFundo"_qs + place;
        for (const auto& verb : {u"adicionar"_qs, u"remover"_qs, u"sobe"_qs, u"desce"_qs})
            names << u"lista/"_qs + verb;
        for (const auto& icon : {u"informacao"_qs, u"pergunta"_qs, u"exclamacao"_qs, u"critico"_qs})
            names << u"caixa/"_qs + icon;
        for (const auto& name : names)
            QTest::newRow(qPrintable(name)) << name;
    }
    void EveryNamedPictureIsThere()
    {
        QFETCH(QString, name);
        QVERIFY(QFile::exists(Artwork::Path(name)));
    }

    void EveryPictureRendersToSomething()
    {
        int pictures = 0;
        for (QDirIterator i(u":/artwork"_qs, QDir::Files, QDirIterator::Subdirectories);
             i.hasNext();) {
            const QString path = i.next();
            QVERIFY2(QSvgRenderer(path).isValid(), qPrintable(path));
            for (int size : {16, 24, 32, 64})
                QVERIFY2(Inked(Rendered(path, {size, size})) > size, qPrintable(path));
            ++pictures;
        }
        QCOMPARE(pictures, 53);
    }

    void ButtonsLieWhollyInsideTheirPicture_data()
    {
        QTest::addColumn<QString>("name");
        for (const auto& button : Viewer)
            QTest::newRow(qPrintable(button)) << button;
    }
    void ButtonsLieWhollyInsideTheirPicture()
    {
        QFETCH(QString, name);
        QVERIFY(HasFreeEdge(Rendered(Artwork::Path(u"viewer/"_qs + name), {96, 96})));
    }

    void TwinHasTheShapeOfItsButtonInGrey_data()
    {
        QTest::addColumn<QString>("name");
        for (const auto& button : WithTwins)
            QTest::newRow(qPrintable(button)) << button;
    }
    void TwinHasTheShapeOfItsButtonInGrey()
    {
        QFETCH(QString, name);
        const QImage button = Rendered(Artwork::Path(u"viewer/"_qs + name), {48, 48});
        const QImage twin = Rendered(Artwork::Path(u"viewer/"_qs + name + u"2"_qs), {48, 48});
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 48; ++x) {
                QCOMPARE(qAlpha(twin.pixel(x, y)), qAlpha(button.pixel(x, y)));
                if (qAlpha(twin.pixel(x, y)) == 255)
                    QCOMPARE(QColor(twin.pixel(x, y)), QColor(u"#b9c0c8"_qs));
            }
        }
    }

    /// A button whose picture another button shares would tell the musician nothing.
    void NoTwoButtonsLookAlike()
    {
        for (int a = 0; a < Viewer.size(); ++a) {
            const QImage one = Rendered(Artwork::Path(u"viewer/"_qs + Viewer[a]), {25, 25});
            for (int b = a + 1; b < Viewer.size(); ++b) {
                const QImage other = Rendered(Artwork::Path(u"viewer/"_qs + Viewer[b]), {25, 25});
                QVERIFY2(one != other, qPrintable(Viewer[a] + u" "_qs + Viewer[b]));
            }
        }
    }

    /// The sheet begins where the frame ends: towards it every frame picture is white.
    void FrameMeetsTheSheetInWhite_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QPoint>("inside");
        QTest::newRow("top left") << u"SupEsq"_qs << QPoint(15, 15);
        QTest::newRow("top right") << u"SupDir"_qs << QPoint(0, 15);
        QTest::newRow("bottom left") << u"InfEsq"_qs << QPoint(15, 0);
        QTest::newRow("bottom right") << u"InfDir"_qs << QPoint(0, 0);
        QTest::newRow("top") << u"Sup"_qs << QPoint(8, 15);
        QTest::newRow("bottom") << u"Inf"_qs << QPoint(8, 0);
        QTest::newRow("left") << u"Esq"_qs << QPoint(15, 8);
        QTest::newRow("right") << u"Dir"_qs << QPoint(0, 8);
    }
    void FrameMeetsTheSheetInWhite()
    {
        QFETCH(QString, name);
        QFETCH(QPoint, inside);
        const QString path = Artwork::Path(u"frame/imgFundo"_qs + name);
        QCOMPARE(QSvgRenderer(path).defaultSize(), QSize(16, 16));
        QCOMPARE(QColor(Rendered(path, {16, 16}).pixel(inside)), QColor(Qt::white));
    }

    /// Edges are stretched over the whole window: along their length nothing may change.
    void EdgesCanBeStretched()
    {
        const QImage top = Rendered(Artwork::Path(u"frame/imgFundoSup"_qs), {400, 16});
        const QImage bottom = Rendered(Artwork::Path(u"frame/imgFundoInf"_qs), {400, 16});
        const QImage left = Rendered(Artwork::Path(u"frame/imgFundoEsq"_qs), {16, 400});
        const QImage right = Rendered(Artwork::Path(u"frame/imgFundoDir"_qs), {16, 400});
        for (int across = 0; across < 16; ++across) {
            for (int along = 0; along < 400; ++along) {
                QCOMPARE(top.pixel(along, across), top.pixel(200, across));
                QCOMPARE(bottom.pixel(along, across), bottom.pixel(200, across));
                QCOMPARE(left.pixel(across, along), left.pixel(across, 200));
                QCOMPARE(right.pixel(across, along), right.pixel(across, 200));
            }
        }
    }
};

QTEST_MAIN(TestArtwork)
#include "tst_artwork.moc"
