// Every key: what it does outside edit mode, and that no control gets it.

#include "KeyBench.h"

#include "viewer/CodigosTecla.h"

namespace {

constexpr int Codes = 256;

/// @return for each code the keys that have it
QMultiHash<int, Key> KeysOfCodes()
{
    QMultiHash<int, Key> keys;
    for (int letter = 'A'; letter <= 'Z'; ++letter)
        keys.insert(letter, {letter});
    for (int digit = 0; digit <= 9; ++digit) {
        keys.insert('0' + digit, {Qt::Key_0 + digit});
        keys.insert(96 + digit, {Qt::Key_0 + digit, Qt::KeypadModifier});
    }
    for (int i = 0; i < 24; ++i)
        keys.insert(112 + i, {Qt::Key_F1 + i});

    const QList<std::pair<int, Key>> others = {
        {8, {Qt::Key_Backspace}},
        {9, {Qt::Key_Tab}},
        {9, {Qt::Key_Backtab, Qt::ShiftModifier}},
        {12, {Qt::Key_Clear, Qt::KeypadModifier}},
        {13, {Qt::Key_Return}},
        {13, {Qt::Key_Enter, Qt::KeypadModifier}},
        {16, {Qt::Key_Shift, Qt::ShiftModifier}},
        {17, {Qt::Key_Control, Qt::ControlModifier}},
        {18, {Qt::Key_Alt, Qt::AltModifier}},
        {18, {Qt::Key_AltGr}},
        {19, {Qt::Key_Pause}},
        {20, {Qt::Key_CapsLock}},
        {27, {Qt::Key_Escape}},
        {32, {Qt::Key_Space}},
        {33, {Qt::Key_PageUp}},
        {33, {Qt::Key_PageUp, Qt::KeypadModifier}},
        {34, {Qt::Key_PageDown}},
        {34, {Qt::Key_PageDown, Qt::KeypadModifier}},
        {35, {Qt::Key_End}},
        {35, {Qt::Key_End, Qt::KeypadModifier}},
        {36, {Qt::Key_Home}},
        {36, {Qt::Key_Home, Qt::KeypadModifier}},
        {37, {Qt::Key_Left}},
        {37, {Qt::Key_Left, Qt::KeypadModifier}},
        {38, {Qt::Key_Up}},
        {38, {Qt::Key_Up, Qt::KeypadModifier}},
        {39, {Qt::Key_Right}},
        {39, {Qt::Key_Right, Qt::KeypadModifier}},
        {40, {Qt::Key_Down}},
        {40, {Qt::Key_Down, Qt::KeypadModifier}},
        {41, {Qt::Key_Select}},
        {43, {Qt::Key_Execute}},
        {44, {Qt::Key_Print}},
        {45, {Qt::Key_Insert}},
        {45, {Qt::Key_Insert, Qt::KeypadModifier}},
        {46, {Qt::Key_Delete}},
        {46, {Qt::Key_Delete, Qt::KeypadModifier}},
        {47, {Qt::Key_Help}},
        {91, {Qt::Key_Super_L}},
        {91, {Qt::Key_Meta}},
        {92, {Qt::Key_Super_R}},
        {93, {Qt::Key_Menu}},
        {95, {Qt::Key_Sleep}},
        {106, {Qt::Key_Asterisk, Qt::KeypadModifier}},
        {107, {Qt::Key_Plus, Qt::KeypadModifier}},
        {109, {Qt::Key_Minus, Qt::KeypadModifier}},
        {110, {Qt::Key_Comma, Qt::KeypadModifier}},
        {110, {Qt::Key_Period, Qt::KeypadModifier}},
        {111, {Qt::Key_Slash, Qt::KeypadModifier}},
        {144, {Qt::Key_NumLock}},
        {145, {Qt::Key_ScrollLock}},
        {187, {Qt::Key_Equal}},
        {187, {Qt::Key_Plus, Qt::ShiftModifier}},
        {188, {Qt::Key_Comma}},
        {189, {Qt::Key_Minus}},
        {189, {Qt::Key_Underscore, Qt::ShiftModifier}},
        {190, {Qt::Key_Period}},
        // Without a number of their own.
        {255, {Qt::Key_unknown}},
        {255, {0}},
        {255, {Qt::Key_Dead_Acute}},
        {255, {Qt::Key_Ccedilla}},
        {255, {Qt::Key_AsciiTilde}},
        {255, {Qt::Key_Asterisk}},
        {255, {Qt::Key_Slash}},
        {255, {Qt::Key_Semicolon}},
        {255, {Qt::Key_VolumeUp}},
        {255, {Qt::Key_MediaPlay}},
    };
    for (const auto& [code, key] : others)
        keys.insert(code, key);
    return keys;
}

/// What each code does in a viewer as bench->Prepared() leaves it; the others do nothing.
QHash<int, QString> Effects()
{
    return {
        {107, u"position 0, points 19"_qs},
        {187, u"position 0, points 19"_qs},
        {109, u"position 0, points 15"_qs},
        {189, u"position 0, points 15"_qs},
        {'S', u"key (D), position 0"_qs},
        {'D', u"key (C), position 0"_qs},
        {'R', u"key (C), position 0"_qs},
        // The chord lines go; the one line break before the first lyric stays.
        {'C', u"lines 121, position 0"_qs},
        {'V', u"position 0, version v.1"_qs},
        {'P', u"key (C), position 0, song 2"_qs},
        {'A', u"key (C), position 0, song 0"_qs},
        {38, u"position 200"_qs},
        {40, u"position 400"_qs},
        {32, u"position the end"_qs},
        {35, u"position the end"_qs},
        {36, u"position 0, scrolls no"_qs},
        {27, u"closed"_qs},
        {13, u"scrolls no"_qs},
        {39, u"speed 100"_qs},
        {37, u"speed 225"_qs},
    };
}

/// Which modifiers can be held with a key.
QList<Qt::KeyboardModifiers> Modifiers()
{
    QList<Qt::KeyboardModifiers> all;
    for (int i = 0; i < 8; ++i)
        all += Qt::KeyboardModifiers((i & 1 ? Qt::ShiftModifier : Qt::NoModifier) |
                                     (i & 2 ? Qt::ControlModifier : Qt::NoModifier) |
                                     (i & 4 ? Qt::AltModifier : Qt::NoModifier));
    return all;
}

QByteArray Name(Qt::KeyboardModifiers modifiers)
{
    QByteArray name;
    if (modifiers & Qt::ShiftModifier)
        name += "Shift+";
    if (modifiers & Qt::ControlModifier)
        name += "Ctrl+";
    if (modifiers & Qt::AltModifier)
        name += "Alt+";
    if (modifiers & Qt::KeypadModifier)
        name += "number block ";
    return name;
}

} // namespace

class tst_viewer_keys : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { bench = std::make_unique<KeyBench>(); }
    void cleanupTestCase() { bench.reset(); }

    void everyCodeHasItsKeys_data();
    void everyCodeHasItsKeys();
    void aKeysPlaceTellItsLetter_data();
    void aKeysPlaceTellItsLetter();
    void thePlatformTellsThatAltGrIsHeld();
    void everyKeyOutsideEditMode_data();
    void everyKeyOutsideEditMode();
    void aLetterActsWithAltGr_data();
    void aLetterActsWithAltGr();
    void superIsNoneOfTheKeysHeldWithE();
    void noKeyReachesTheSheet();
    void scrollKeysStopAndStartAlike();
    void everyKeyInEditModeIsTheSheets_data();
    void everyKeyInEditModeIsTheSheets();

private:
    std::unique_ptr<KeyBench> bench;
};

void tst_viewer_keys::everyCodeHasItsKeys_data()
{
    QTest::addColumn<int>("code");
    for (int code = 1; code < Codes; ++code)
        QTest::addRow("code %d", code) << code;
}

void tst_viewer_keys::everyCodeHasItsKeys()
{
    QFETCH(int, code);
    const auto keys = KeysOfCodes();
    for (auto it = keys.begin(); it != keys.end(); ++it)
        QCOMPARE(CodigosTecla::Codigo(it->key, it->modifiers) == code, it.key() == code);
}

void tst_viewer_keys::aKeysPlaceTellItsLetter_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("shift");
    const auto add = [](const char* name, int key, int place, Qt::KeyboardModifiers modifiers,
                        int code, int shift) {
        QTest::newRow(name) << key << place << int(modifiers) << code << shift;
    };
    // Signs that AltGr gives on a Brazilian keyboard.
    add("AltGr+S", Qt::Key_ssharp, 39, {}, 'S', 6);
    add("AltGr+D", Qt::Key_ETH, 40, {}, 'D', 6);
    add("AltGr+R", Qt::Key_registered, 27, {}, 'R', 6);
    add("AltGr+C", 0x20A2, 54, {}, 'C', 6);
    add("AltGr+V", 0x201C, 55, {}, 'V', 6);
    add("AltGr+P", Qt::Key_THORN, 33, {}, 'P', 6);
    add("AltGr+A", Qt::Key_AE, 38, {}, 'A', 6);
    add("AltGr+E", Qt::Key_degree, 26, {}, 'E', 6);
    add("Shift+AltGr+E", Qt::Key_degree, 26, Qt::ShiftModifier, 'E', 7);
    add("AltGr and =", Qt::Key_section, 21, {}, 187, 0);
    add("AltGr and -", Qt::Key_onehalf, 20, {}, 189, 0);
    // * shares the Portuguese keyboard's key with +, and the Brazilian one's with 8.
    add("Shift and + of Portugal", Qt::Key_Asterisk, 34, Qt::ShiftModifier, 187, 1);
    add("Shift and 8", Qt::Key_Asterisk, 17, Qt::ShiftModifier, 255, 1);
    add("an accent's key", Qt::Key_Dead_Acute, 34, {}, 255, 0);
    add("the key after the last letter of a row", Qt::Key_Ccedilla, 47, {}, 255, 0);
    add("the key before the first", Qt::Key_Bar, 51, {}, 255, 0);
    // What a key types comes before its place: on a French keyboard A is where Q is here.
    add("A of a French keyboard", Qt::Key_A, 24, {}, 'A', 0);
    add("a place that is not told", Qt::Key_ssharp, 0, {}, 255, 0);
    // Letters of other scripts are typed without AltGr, and their keys are the Latin ones.
    add("Russian E", 0x0423, 26, {}, 'E', 0);
    add("Shift and Russian E", 0x0423, 26, Qt::ShiftModifier, 'E', 1);
    add("Russian S", 0x042B, 39, {}, 'S', 0);
    add("Shift and Greek E", 0x0395, 26, Qt::ShiftModifier, 'E', 1);
    add("Hebrew D", 0x05D2, 40, {}, 'D', 0);
    add("Shift, AltGr and Russian E", 0x0423, 26, Qt::ShiftModifier | Qt::GroupSwitchModifier, 'E',
        7);
    // Where other layouts have signs or letters of their own, there is none of these letters.
    add("apostrophe of a Dvorak keyboard", Qt::Key_Apostrophe, 24, {}, 255, 0);
    add("semicolon of a Dvorak keyboard", Qt::Key_Semicolon, 52, {}, 255, 0);
    add("Turkish G with a breve", 0x011E, 26, {}, 255, 0);
    add("question mark of a French keyboard", Qt::Key_Question, 58, Qt::ShiftModifier, 255, 1);
    // Held AltGr makes any sign of theirs a letter again.
    add("AltGr held and a sign", Qt::Key_Bar, 39, Qt::GroupSwitchModifier, 'S', 6);
    add("AltGr held and a letter", Qt::Key_E, 26, Qt::ShiftModifier | Qt::GroupSwitchModifier, 'E',
        7);
    add("euro", 0x20AC, 26, {}, 'E', 6);
    add("AltGr+A of a Polish keyboard", 0x0104, 38, {}, 'A', 6);
    add("Shift and AltGr+S", 0x1E9E, 39, Qt::ShiftModifier, 'S', 7);
    add("a blank that does not break", Qt::Key_nobreakspace, 65, {}, 32, 0);
    add("AltGr and Space", Qt::Key_nobreakspace, 65, Qt::GroupSwitchModifier, 32, 6);
}

void tst_viewer_keys::aKeysPlaceTellItsLetter()
{
    QFETCH(int, key);
    QFETCH(int, place);
    QFETCH(int, modifiers);
    const QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), quint32(place),
                          0, 0);
    const CodigosTecla::Pressao read = CodigosTecla::Le_Tecla(press);
    QTEST(read.codigo, "code");
    QTEST(read.shift, "shift");
}

/// The bit that the platform sets while AltGr is held.
void tst_viewer_keys::thePlatformTellsThatAltGrIsHeld()
{
    constexpr quint32 FifthModifier = 0x80;
    const QKeyEvent held(QEvent::KeyPress, Qt::Key_Bar, Qt::ShiftModifier, 26, 0, FifthModifier);
    const CodigosTecla::Pressao read = CodigosTecla::Le_Tecla(held);
    QCOMPARE(read.codigo, int{'E'});
    QCOMPARE(read.shift, 7);
}

void tst_viewer_keys::everyKeyOutsideEditMode_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("effect");
    const auto keys = KeysOfCodes();
    const auto effects = Effects();
    for (int code = 0; code < Codes; ++code) {
        for (const Key& key : keys.values(code)) {
            for (const Qt::KeyboardModifiers held : Modifiers()) {
                // A key that does nothing is tried alone and with Shift.
                if (!effects.contains(code) && code != 'E' && (held & ~Qt::ShiftModifier))
                    continue;
                const auto modifiers = key.modifiers | held;
                const bool edits = code == 'E' && held == Qt::ShiftModifier;
                QTest::addRow("%d %s%x", code, Name(modifiers).constData(), unsigned(key.key))
                    << key.key << int(modifiers)
                    << (edits ? u"edits yes, scrolls no"_qs : effects.value(code));
            }
        }
    }
}

void tst_viewer_keys::everyKeyOutsideEditMode()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, effect);
    const auto viewer = bench->Prepared();
    const auto before = Look(viewer);
    QCOMPARE(before.value(u"position"_qs), u"300"_qs);
    QCOMPARE(before.value(u"scrolls"_qs), u"yes"_qs);
    // The list is what a leaking arrow or letter would move.
    Send(In(viewer, "cmbLista"), {key, Qt::KeyboardModifiers(modifiers)});
    auto after = Look(viewer);
    if (after.value(u"edits"_qs) == u"yes")
        after[u"position"_qs] = before[u"position"_qs]; // the caret may want its whole line
    const QString seen = Difference(before, after);
    // What renders stops the scrolling; that is the render's, not the key's.
    if (effect.contains(u"position 0") && !effect.contains(u"scrolls"))
        effect += u", scrolls no"_qs;
    QStringList expected = effect.isEmpty() ? QStringList() : effect.split(u", "_qs);
    expected.sort();
    QCOMPARE(seen, expected.join(u", "_qs));
    delete viewer;
}

void tst_viewer_keys::aLetterActsWithAltGr_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("effect");
    const QString rendered = u", position 0, scrolls no"_qs;
    const int shift = Qt::ShiftModifier;
    QTest::newRow("S") << int(Qt::Key_ssharp) << 39 << 0 << QString(u"key (D)"_qs + rendered);
    QTest::newRow("Shift+S") << int(Qt::Key_section) << 39 << shift
                             << QString(u"key (D)"_qs + rendered);
    QTest::newRow("V") << 0x201C << 55 << 0 << u"position 0, scrolls no, version v.1"_qs;
    QTest::newRow("E") << int(Qt::Key_degree) << 26 << 0 << QString();
    QTest::newRow("Shift+E") << int(Qt::Key_degree) << 26 << shift << QString();
    QTest::newRow("Shift and + of Portugal")
        << int(Qt::Key_Asterisk) << 34 << shift << u"points 19, position 0, scrolls no"_qs;
}

void tst_viewer_keys::aLetterActsWithAltGr()
{
    QFETCH(int, key);
    QFETCH(int, place);
    QFETCH(int, modifiers);
    const auto viewer = bench->Prepared();
    const auto before = Look(viewer);
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), quint32(place), 0, 0,
                    u"ß"_qs);
    QApplication::sendEvent(Box(viewer, 2), &press);
    QTEST(Difference(before, Look(viewer)), "effect");
    delete viewer;
}

void tst_viewer_keys::superIsNoneOfTheKeysHeldWithE()
{
    const auto viewer = bench->Prepared();
    Send(viewer, {Qt::Key_E, Qt::MetaModifier});
    QCOMPARE(Look(viewer).value(u"edits"_qs), u"no"_qs);
    Send(viewer, {Qt::Key_E, Qt::ShiftModifier | Qt::MetaModifier});
    QCOMPARE(Look(viewer).value(u"edits"_qs), u"yes"_qs);
    delete viewer;
}

void tst_viewer_keys::noKeyReachesTheSheet()
{
    const auto keys = KeysOfCodes();
    auto viewer = bench->Prepared();
    // The form keeps the keys away, also from a sheet that would take them.
    RichTextBox* box = Box(viewer, 2);
    box->setTextInteractionFlags(Qt::TextEditorInteraction);
    const auto effects = Effects();
    const QString text = box->Text();
    for (auto it = keys.begin(); it != keys.end(); ++it) {
        if (effects.contains(it.key()) || it.key() == 'E')
            continue;
        QKeyEvent press(QEvent::KeyPress, it->key, it->modifiers, u"x"_qs);
        QApplication::sendEvent(box, &press);
        QCOMPARE(box->textCursor().position(), 0);
        QCOMPARE(box->document()->isModified(), false);
    }
    QCOMPARE(box->Text(), text);
    delete viewer;
}

void tst_viewer_keys::scrollKeysStopAndStartAlike()
{
    const auto viewer = bench->Prepared();
    Send(viewer, {Qt::Key_Return});
    Send(viewer, {Qt::Key_Home});
    QCOMPARE(Look(viewer).value(u"scrolls"_qs), u"no"_qs);
    Send(viewer, {Qt::Key_End});
    QCOMPARE(Look(viewer).value(u"scrolls"_qs), u"no"_qs);
    Send(viewer, {Qt::Key_Enter, Qt::KeypadModifier});
    QCOMPARE(Look(viewer).value(u"scrolls"_qs), u"yes"_qs);
    delete viewer;
}

void tst_viewer_keys::everyKeyInEditModeIsTheSheets_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    const auto keys = KeysOfCodes();
    for (int code = 0; code < Codes; ++code)
        for (const Key& key : keys.values(code))
            QTest::addRow("%d %s%x", code, Name(key.modifiers).constData(), unsigned(key.key))
                << key.key << int(key.modifiers);
}

void tst_viewer_keys::everyKeyInEditModeIsTheSheets()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    const auto viewer = bench->Prepared();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    Send(viewer, {Qt::Key_E, Qt::ShiftModifier});
    const auto before = Look(viewer);
    QCOMPARE(before.value(u"edits"_qs), u"yes"_qs);
    Send(Box(viewer, 2), {key, Qt::KeyboardModifiers(modifiers)});
    auto after = Look(viewer);
    // The sheet's own business: what stands in it and which part of it is seen.
    for (const QString& own : {u"lines"_qs, u"position"_qs})
        after[own] = before[own];
    QCOMPARE(Difference(before, after), QString());
    delete viewer;
}

QTEST_MAIN(tst_viewer_keys)
#include "tst_viewer_keys.moc"
