// A random walk through what a viewer does. Beside it goes a small model that knows nothing of the
// program: after each step it tells what must be seen and what must lie in the catalogue.

#include "EditingBench.h"
#include "Ticks.h"
#include "viewer/Musicas_Contadas.h"

#include <QMap>
#include <QProgressBar>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>

#include <array>
#include <cmath>

namespace {

const QStringList Names = {u"?"_qs,  u"C"_qs, u"C#"_qs, u"D"_qs, u"D#"_qs, u"E"_qs, u"F"_qs,
                           u"F#"_qs, u"G"_qs, u"G#"_qs, u"A"_qs, u"A#"_qs, u"B"_qs};
const QString Break = u"\r\n"_qs;

/// The one of the two notes that lies so many semitones away, from 1 to 12.
int Moved(int note, int offset)
{
    const int moved = note + offset;
    return moved > 12 ? moved - 12 : moved < 1 ? moved + 12 : moved;
}

QString MovedChords(const QString& line, int offset)
{
    static const QRegularExpression chord(u"[A-G]#?"_qs);
    QString moved;
    qsizetype from = 0;
    for (auto it = chord.globalMatch(line); it.hasNext();) {
        const auto match = it.next();
        moved += line.mid(from, match.capturedStart() - from) +
                 Names[Moved(int(Names.indexOf(match.captured())), offset)];
        from = match.capturedEnd();
    }
    return moved + line.mid(from);
}

/// What a sheet shows of a text; lyrics are told by their small letters.
QString Sheet(const QString& text, int offset, bool chords)
{
    QString sheet;
    bool first = true;
    for (const QString& line : text.split(Break)) {
        if (line.contains(u'o'))
            sheet += Break + line;
        else if (chords)
            sheet += (first ? QString() : Break) + MovedChords(line, offset);
        first = false;
    }
    return sheet;
}

QString Decimal(double number)
{
    return QString::number(number, 'g', 15).replace(u'.', u',');
}

/// A song as it lies in the catalogue.
struct Row
{
    QString title;
    QString key;
    std::array<QString, 2> texts;
    int plays = 0;
};

/// What a viewer must look like.
struct Model
{
    QMap<qint64, Row> rows;
    QList<qint64> list;
    int at = -1;
    Row song; ///< as loaded
    int base = 0;
    int offset = 0;
    int font = 0;
    int version = 2;
    bool chords = true;
    bool editing = false;
    std::array<QString, 2> boxes;
    std::array<int, 2> positions{};
    double period = 150;
    int level = 4;
    bool scrolls = false;
    int seconds = 0;
    bool counts = true;
    QString label = u"10"_qs;
    QSet<qint64> counted;

    std::size_t Shown() const { return std::size_t(version - 1); }
    int Key() const { return Moved(base, offset); }

    void Load();
    void Render();
    bool Change(Qt::Key key);
    void Scroll(Qt::Key key, int limit);
    void Go(int where);
    void Faster();
    void Slower();
    void Second();
    void Save(bool both);
};

void Model::Load()
{
    const auto row = rows.constFind(list[at]);
    if (row != rows.constEnd()) {
        song = *row;
        if (song.texts[1].isEmpty())
            song.texts[1] = song.texts[0];
        seconds = 10;
        counts = true;
    }
    const auto note = Names.indexOf(song.key);
    base = note > 0 ? int(note) : base;
}

void Model::Render()
{
    boxes.at(Shown()) = Sheet(song.texts.at(Shown()), offset, chords);
    positions.at(Shown()) = 0;
    scrolls = false;
}

/// @return whether the key is one of those that render the sheet anew
bool Model::Change(Qt::Key key)
{
    switch (key) {
    case Qt::Key_S:
        offset = offset == 12 ? 1 : offset + 1;
        break;
    case Qt::Key_D:
        offset = offset == -12 ? -1 : offset - 1;
        break;
    case Qt::Key_R:
        offset = 0;
        break;
    case Qt::Key_C:
        chords = !chords;
        break;
    case Qt::Key_V:
        version = 3 - version;
        break;
    case Qt::Key_Plus:
        font = std::min(font + 4, 16);
        break;
    case Qt::Key_Minus:
        font = std::max(font, -16) - 4;
        break;
    default:
        return false;
    }
    Render();
    return true;
}

/// The keys that move the sheet, or to another song. @param limit  of the shown sheet, in pixels
void Model::Scroll(Qt::Key key, int limit)
{
    int& position = positions.at(Shown());
    if (key == Qt::Key_Up)
        position = std::max(position - 100, 0);
    else if (key == Qt::Key_Down)
        position = std::min(position + 100, limit);
    else if (key == Qt::Key_Home)
        position = 0;
    else if (key == Qt::Key_End || key == Qt::Key_Space)
        position = limit;
    if (key == Qt::Key_Return || key == Qt::Key_Home)
        scrolls = key == Qt::Key_Return && !scrolls;
    else if (key == Qt::Key_Right)
        Faster();
    else if (key == Qt::Key_Left)
        Slower();
    else if (key == Qt::Key_P || key == Qt::Key_A)
        Go(key == Qt::Key_P ? at + 1 : at - 1);
}

void Model::Go(int where)
{
    if (where < 0 || where >= list.size() || where == at)
        return;
    at = where;
    Load();
    offset = 0;
    Render();
}

void Model::Faster()
{
    period = QByteArray::number(period / 1.5, 'g', 15).toDouble();
    ++level;
    if (std::floor(period) <= 0) {
        period = 1;
        level = 16;
    }
}

void Model::Slower()
{
    period = QByteArray::number(period * 1.5, 'g', 15).toDouble();
    --level;
    if (std::floor(period) > 500) {
        period = 500;
        level = 1;
    }
}

void Model::Second()
{
    if (!counts)
        return;
    if (seconds > 0) {
        label = QString::number(--seconds);
        return;
    }
    seconds = 10;
    counts = false;
    if (!counted.contains(list[at]) && rows.contains(list[at]))
        ++rows[list[at]].plays;
    counted.insert(list[at]);
}

void Model::Save(bool both)
{
    if (both)
        boxes.at(1 - Shown()) = boxes.at(Shown());
    if (rows.contains(list[at])) {
        Row& row = rows[list[at]];
        row.title = QString(song.title).remove(u'*');
        row.key = Names[Key()];
        row.texts = boxes;
    }
    Load();
    offset = 0;
    Render();
}

} // namespace

class tst_viewer_walk : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Funcoes::Musicas_Contadas.clear();
        bench = std::make_unique<EditingBench>();
        model = Model();
    }
    void cleanup() { bench.reset(); }

    void everyStepShowsWhatItMust_data();
    void everyStepShowsWhatItMust();

private:
    void Open();
    QString ReadingStep();
    QString KeyStep();
    QString EditingStep();
    QString Answer();
    QStringList Seen() const;
    QStringList Expected() const;
    QStringList Catalogue() const;
    QStringList ExpectedCatalogue() const;
    int Any(int below) { return int(random.bounded(quint32(below))); }
    int Limit() const { return Shown(viewer)->property("Tag").toString().toInt(); }

    std::unique_ptr<EditingBench> bench;
    QPointer<frmVisualizar> viewer;
    QRandomGenerator random;
    Model model;
};

/// Six songs, one of them twice in the setlist, one in no key, one with an empty second version.
void tst_viewer_walk::Open()
{
    const QStringList keys = {u"C"_qs, u"F#"_qs, u"H"_qs, u"B"_qs, u"A"_qs, u"D#"_qs};
    for (int i = 0; i < keys.size(); ++i) {
        Row row{u"*Canto %1"_qs.arg(i), keys[i], {}, i};
        for (std::size_t version : {0U, 1U}) {
            const QString verse = u"C  G7   F#m\r\nSanto, verso %1"_qs.arg(version);
            row.texts.at(version) = QString(QString(verse + Break).repeated(20 + 9 * i) + verse);
        }
        if (i == 3)
            row.texts[1] = u""_qs;
        const qint64 id = bench->catalogue.AddSong({.title = row.title,
                                                    .text = row.texts[0],
                                                    .text2 = row.texts[1],
                                                    .key = row.key,
                                                    .count = row.plays});
        model.rows[id] = row;
        model.list.append(id);
    }
    model.list.append(model.list[1]);
    viewer = EditingBench::Active(bench->OpenList(
        bench->catalogue.AddSetlist(u"Vigília"_qs, QDate(2014, 5, 11), model.list)));
    model.Go(0);
}

QString tst_viewer_walk::KeyStep()
{
    static const QList<Qt::Key> keys = {
        Qt::Key_S,   Qt::Key_D,     Qt::Key_R,      Qt::Key_C,     Qt::Key_V,    Qt::Key_P,
        Qt::Key_A,   Qt::Key_Plus,  Qt::Key_Minus,  Qt::Key_Up,    Qt::Key_Down, Qt::Key_Home,
        Qt::Key_End, Qt::Key_Space, Qt::Key_Return, Qt::Key_Right, Qt::Key_Left, Qt::Key_X};
    const Qt::Key key = keys[Any(int(keys.size()))];
    if (!model.Change(key))
        model.Scroll(key, Limit());
    QTest::keyClick(viewer.data(), key);
    return u"key %1"_qs.arg(key, 0, 16);
}

QString tst_viewer_walk::ReadingStep()
{
    switch (Any(12)) {
    case 0:
        model.editing = true;
        model.scrolls = false;
        if (Any(2) == 0)
            Click(viewer, "cmdEditar");
        else
            Press(viewer, Qt::Key_E, Qt::ShiftModifier);
        return u"edit"_qs;
    case 1: {
        const int where = Any(int(model.list.size()));
        model.Go(where);
        List(viewer)->SetListIndex(where);
        return u"entry %1"_qs.arg(where);
    }
    case 2:
        for (int i = Any(12); i >= 0; --i) {
            Tick(viewer, "tmrContador");
            model.Second();
        }
        return u"seconds"_qs;
    case 3:
        if (model.scrolls) {
            int& position = model.positions.at(model.Shown());
            position = std::min(position + 1, Limit());
        }
        Tick(viewer, "TimerRolagem");
        return u"tick"_qs;
    case 4:
        if (Any(20) == 0 && model.rows.size() > 2) {
            const qint64 gone = model.rows.keys().at(Any(int(model.rows.size())));
            model.rows.remove(gone);
            bench->catalogue.Run(u"DELETE FROM MUSICA WHERE ID = %1"_qs.arg(gone));
            return u"delete %1"_qs.arg(gone);
        }
        [[fallthrough]];
    default:
        return KeyStep();
    }
}

QString tst_viewer_walk::Answer()
{
    static const QList<QByteArray> answers = {"cmdSalvar", "cmdSalvarIgualar", "cmdNaoSalvar",
                                              "cmdCancelar", "title bar"};
    const QByteArray& answer = answers[Any(int(answers.size()))];
    const bool asked = WithChoice([this] { Click(viewer, "cmdSalvar"); },
                                  [&](QWidget& dialog) {
                                      if (answer == "title bar")
                                          dialog.close();
                                      else
                                          Click(&dialog, answer.constData());
                                  });
    model.editing = answer == "cmdCancelar";
    if (answer == "cmdNaoSalvar")
        model.Render();
    else if (answer != "cmdCancelar")
        model.Save(answer == "cmdSalvarIgualar");
    return asked ? QString::fromLatin1(answer) : u"nobody asked"_qs;
}

QString tst_viewer_walk::EditingStep()
{
    switch (Any(5)) {
    case 0:
    case 1:
        return Answer();
    case 2:
        bench->dialogs.answer = Any(2) == 0;
        Click(viewer, "cmdDescartar");
        if (bench->dialogs.answer) {
            model.editing = false;
            model.Render();
        }
        return u"discard %1"_qs.arg(bench->dialogs.answer);
    case 3:
        Tick(viewer, "tmrContador");
        model.Second();
        return u"second"_qs;
    default:
        TypeAtTheEnd(viewer, u" como SDRCVPAE"_qs);
        model.boxes.at(model.Shown()) += u" como SDRCVPAE"_qs;
        return u"type"_qs;
    }
}

QStringList tst_viewer_walk::Seen() const
{
    const RichTextBox* box = Shown(viewer);
    return {Title(viewer),
            Caption(viewer, "lblTom"),
            Caption(viewer, "lblVersao"),
            QString::number(List(viewer)->ListIndex()),
            QString::number(viewer->ID_Musica),
            model.editing ? QString() : Arrows(viewer),
            QString::number(box->font().pointSizeF()),
            model.editing ? QString() : QString::number(box->verticalScrollBar()->value()),
            QString::number(In<QTimer>(viewer, "TimerRolagem")->isActive()),
            In<QTimer>(viewer, "TimerRolagem")->property("Tag").toString(),
            QString::number(In<QProgressBar>(viewer, "ProgressBarRolagem")->value()),
            Caption(viewer, "lblCont"),
            QString::number(In<QTimer>(viewer, "tmrContador")->isActive()),
            QString::number(Editing(viewer)),
            Box(viewer, 1)->Text(),
            Box(viewer, 2)->Text()};
}

QStringList tst_viewer_walk::Expected() const
{
    const QString arrows = (model.at > 0 ? u"<"_qs : QString()) +
                           (model.at + 1 < model.list.size() ? u">"_qs : QString());
    return {model.song.title,
            u"("_qs + Names[model.Key()] + u")"_qs,
            u"v.%1"_qs.arg(model.version),
            QString::number(model.at),
            QString::number(model.list[model.at]),
            model.editing ? QString() : arrows,
            QString::number((34 + model.font) / 2.0),
            model.editing ? QString() : QString::number(model.positions.at(model.Shown())),
            QString::number(model.scrolls),
            Decimal(model.period),
            QString::number(model.level),
            model.label,
            QString::number(model.counts),
            QString::number(model.editing),
            model.boxes[0],
            model.boxes[1]};
}

QStringList tst_viewer_walk::Catalogue() const
{
    QStringList all;
    for (const QStringList& row : bench->catalogue.Rows(
             u"SELECT ID, TITULO, TOM, MUSICA, MUSICA2, CONTADOR FROM MUSICA ORDER BY ID"_qs))
        all += row;
    return all;
}

QStringList tst_viewer_walk::ExpectedCatalogue() const
{
    QStringList all;
    for (auto it = model.rows.begin(); it != model.rows.end(); ++it)
        all += {QString::number(it.key()), it->title, it->key, it->texts[0], it->texts[1],
                QString::number(it->plays)};
    return all;
}

void tst_viewer_walk::everyStepShowsWhatItMust_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 8; ++seed)
        QTest::addRow("walk %u", seed) << seed;
}

void tst_viewer_walk::everyStepShowsWhatItMust()
{
    QFETCH(quint32, seed);
    random.seed(seed);
    Open();
    QStringList steps;
    for (int i = 0; i < 200; ++i) {
        steps += model.editing ? EditingStep() : ReadingStep();
        const QStringList expected = Expected() + ExpectedCatalogue();
        const QStringList seen = Seen() + Catalogue();
        if (seen != expected)
            qWarning().noquote()
                << steps.mid(std::max<qsizetype>(steps.size() - 12, 0)).join(u" / ");
        QCOMPARE(seen, expected);
    }
    QVERIFY(bench->dialogs.boxes.size() < 200);
}

QTEST_MAIN(tst_viewer_walk)
#include "tst_viewer_walk.moc"
