// The arrows of the house: which room may include which, read from the include lines themselves.

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString Source = QStringLiteral(MELODARIO_SOURCE_DIR "/src/");

/// The rooms that each room may include, besides itself.
const QHash<QString, QStringList>& Arrows()
{
    static const QHash<QString, QStringList> arrows = {
        {u"runtime"_qs, {}},
        {u"artwork"_qs, {}},
        {u"fonts"_qs, {}},
        {u"chords"_qs, {u"runtime"_qs}},
        {u"store"_qs, {u"runtime"_qs}},
        {u"jet"_qs, {u"runtime"_qs, u"store"_qs}},
        {u"mld"_qs, {u"runtime"_qs, u"store"_qs}},
        {u"controls"_qs, {u"runtime"_qs, u"artwork"_qs, u"store"_qs, u"chords"_qs}},
        {u"viewer"_qs, {u"runtime"_qs, u"store"_qs, u"chords"_qs, u"artwork"_qs, u"controls"_qs}},
        {u"exchange"_qs,
         {u"runtime"_qs, u"store"_qs, u"mld"_qs, u"chords"_qs, u"artwork"_qs, u"controls"_qs}},
        {u"main"_qs,
         {u"runtime"_qs, u"store"_qs, u"chords"_qs, u"artwork"_qs, u"controls"_qs, u"viewer"_qs,
          u"jet"_qs, u"mld"_qs, u"exchange"_qs}},
        {u"app"_qs,
         {u"runtime"_qs, u"artwork"_qs, u"fonts"_qs, u"store"_qs, u"controls"_qs, u"main"_qs}},
        {u"songbook"_qs, {u"runtime"_qs, u"store"_qs, u"mld"_qs, u"chords"_qs}},
        {u"pages"_qs, {u"runtime"_qs, u"songbook"_qs}},
        {u"tools"_qs,
         {u"runtime"_qs, u"store"_qs, u"jet"_qs, u"mld"_qs, u"chords"_qs, u"songbook"_qs,
          u"pages"_qs, u"fonts"_qs}},
    };
    return arrows;
}

struct Include
{
    QString file; ///< below src/
    QString room; ///< of the file
    QString name; ///< as written
    bool quoted = false;
};

QList<Include> Includes()
{
    static const QRegularExpression line(QStringLiteral(R"(^\s*#\s*include\s*([<"])([^>"]+))"),
                                         QRegularExpression::MultilineOption);
    QList<Include> includes;
    QDirIterator files(Source, {u"*.h"_qs, u"*.cpp"_qs}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString path = file.fileName().mid(Source.size());
        auto matches = line.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext()) {
            const auto match = matches.next();
            includes.append(
                {path, path.section(u'/', 0, 0), match.captured(2), match.captured(1) == u"\""});
        }
    }
    return includes;
}

} // namespace

class tst_setas : public QObject
{
    Q_OBJECT

private slots:
    void everyRoomIsKnown();
    void noArrowPointsUpward();
    void enginesSeeNoWidget();
    void nothingUsesTheSystemDirectly();
    void onlyItsReaderUsesTheLibraryOfTheOlderFormat();
    void noFileIsTooLong();
};

void tst_setas::everyRoomIsKnown()
{
    const QList<Include> includes = Includes();
    QVERIFY(includes.size() > 50); // else the files were not found and nothing below can fail
    for (const Include& include : includes)
        QVERIFY2(Arrows().contains(include.room), qPrintable(include.file));
}

void tst_setas::noArrowPointsUpward()
{
    QStringList wrong;
    for (const Include& include : Includes()) {
        const QString target = include.name.section(u'/', 0, 0);
        if (include.quoted && include.name.contains(u'/') && Arrows().contains(target) &&
            target != include.room && !Arrows().value(include.room).contains(target))
            wrong += include.file + u" -> " + include.name;
    }
    QCOMPARE(wrong, QStringList());
}

void tst_setas::enginesSeeNoWidget()
{
    static const QRegularExpression visual(QStringLiteral(
        "^(QtGui|QtWidgets|QtSvg)/|^Q(Widget|Application|GuiApplication|Painter|Font|"
        "Color|Image|Pixmap|Icon|TextEdit|TextDocument|TextCursor|Palette|Screen|"
        "Dialog|MessageBox|AbstractItemView|Style|Window)$"));
    QStringList wrong;
    for (const Include& include : Includes()) {
        const bool engine = include.room == u"runtime" || include.room == u"chords" ||
                            include.room == u"store" || include.room == u"mld" ||
                            include.room == u"songbook" || include.room == u"jet";
        if (engine && visual.match(include.name).hasMatch())
            wrong += include.file + u" -> " + include.name;
    }
    QCOMPARE(wrong, QStringList());
}

void tst_setas::nothingUsesTheSystemDirectly()
{
    static const QRegularExpression system(QStringLiteral(
        "^(unistd|fcntl|io|dlfcn|pwd|signal|pthread|dirent|termios|poll|windows|shlobj)\\.h$|^"
        "(sys|X11|xcb)/"));
    // What a process may use, what a console shows and whether the screen stays on is the system's;
    // another one takes the file beside these.
    const QStringList forOneSystem = {
        u"tools/jet/ProcessLimitsPosix.cpp"_qs, u"tools/ConsoleWindows.cpp"_qs,
        u"tools/DesktopNewsWindows.cpp"_qs, u"viewer/TelaAcesaWindows.cpp"_qs};
    QStringList wrong;
    for (const Include& include : Includes()) {
        if (!forOneSystem.contains(include.file) && system.match(include.name).hasMatch())
            wrong += include.file + u" -> " + include.name;
    }
    QCOMPARE(wrong, QStringList());
}

void tst_setas::onlyItsReaderUsesTheLibraryOfTheOlderFormat()
{
    QStringList wrong;
    int uses = 0;
    for (const Include& include : Includes()) {
        if (include.name != u"mdbtools.h" && include.name != u"glib.h" &&
            include.name != u"tools/jet/Libmdb.h")
            continue;
        ++uses;
        if (!include.file.startsWith(u"tools/jet/"))
            wrong += include.file + u" -> " + include.name;
    }
    QVERIFY(uses > 0);
    QCOMPARE(wrong, QStringList());
}

void tst_setas::noFileIsTooLong()
{
    constexpr qsizetype MostLines = 600;
    QStringList wrong;
    for (const QString& folder : {u"src"_qs, u"tests"_qs, u"bench"_qs, u"fuzz"_qs}) {
        QDirIterator files(QStringLiteral(MELODARIO_SOURCE_DIR "/") + folder,
                           {u"*.h"_qs, u"*.cpp"_qs}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY2(files.hasNext(), qPrintable(folder));
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const qsizetype lines = file.readAll().count('\n');
            if (lines > MostLines)
                wrong += QStringLiteral("%1: %2 lines").arg(file.fileName()).arg(lines);
        }
    }
    QCOMPARE(wrong, QStringList());
}

QTEST_APPLESS_MAIN(tst_setas)
#include "tst_setas.moc"
