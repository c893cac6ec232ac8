#include "controls/Dialogs.h"

#include "RecordingDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Does something with the next modal box as soon as it is open.
template <typename Box>
void WithNextBox(const std::function<void(Box&)>& act)
{
    QTimer::singleShot(0, [act] {
        auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
        QVERIFY(box);
        act(*box);
        if (QPointer<Box> open = box; open && open->isVisible())
            open->reject();
    });
}

} // namespace

class tst_dialogs : public QObject
{
    Q_OBJECT

private slots:
    void a_message_has_title_icon_and_plain_text_data();
    void a_message_has_title_icon_and_plain_text();
    void a_text_beyond_every_screen_is_cut_data();
    void a_text_beyond_every_screen_is_cut();
    void a_question_is_answered_data();
    void a_question_is_answered();
    void a_held_key_answers_nothing_data();
    void a_held_key_answers_nothing();
    void an_input_box_gives_what_was_typed();
    void an_input_box_keeps_an_initial_text_whole();
    void an_input_box_takes_one_line_of_what_is_pasted();
    void a_held_enter_leaves_an_input_box_open();
    void an_input_box_that_is_cancelled_gives_an_empty_text();
    void an_input_box_stands_where_it_was_asked_to();
    void an_input_box_keeps_its_buttons_on_the_screen_data();
    void an_input_box_keeps_its_buttons_on_the_screen();
    void a_box_may_go_with_its_form_while_open();
    void a_test_may_put_its_own_door_in_place();
};

void tst_dialogs::a_message_has_title_icon_and_plain_text_data()
{
    QTest::addColumn<Icone>("icon");
    QTest::addColumn<QMessageBox::Icon>("shown");
    QTest::newRow("none") << Icone::Nenhum << QMessageBox::NoIcon;
    QTest::newRow("critical") << Icone::Critico << QMessageBox::Critical;
    QTest::newRow("exclamation") << Icone::Exclamacao << QMessageBox::Warning;
    QTest::newRow("information") << Icone::Informacao << QMessageBox::Information;
    QTest::newRow("question") << Icone::Pergunta << QMessageBox::Question;
}

void tst_dialogs::a_message_has_title_icon_and_plain_text()
{
    QFETCH(Icone, icon);
    QFETCH(QMessageBox::Icon, shown);
    bool seen = false;
    WithNextBox<QMessageBox>([&](QMessageBox& box) {
        seen = true;
        QCOMPARE(box.text(), u"<b>Olá</b>"_s);
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.windowTitle(), u"Melodario"_s);
        QCOMPARE(box.icon(), shown);
        QCOMPARE(box.standardButtons(), QMessageBox::Ok);
    });
    Funcoes::Mostra_Mensagem(nullptr, u"<b>Olá</b>"_s, icon);
    QVERIFY(seen);
}

void tst_dialogs::a_text_beyond_every_screen_is_cut_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("a long title") << u"Amor "_qs.repeated(200) << true;
    QTest::newRow("five million letters") << u"Amor "_qs.repeated(1'000'000) << false;
    QTest::newRow("without a blank") << u"x"_qs.repeated(1'000'000) << false;
    QTest::newRow("a thousand lines") << u"a\r\n"_qs.repeated(1000) << false;
}

void tst_dialogs::a_text_beyond_every_screen_is_cut()
{
    QFETCH(QString, title);
    QFETCH(bool, isWhole);
    const QString text = u"A música '"_qs + title + u"' já existe. Deseja importar?";
    QString shown;
    int height = 0;
    QTimer::singleShot(0, this, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        shown = box->text();
        height = box->sizeHint().height();
        box->button(QMessageBox::No)->click();
    });
    QVERIFY(!Funcoes::Pergunta(nullptr, text));
    QCOMPARE(shown == text, isWhole);
    QVERIFY(shown.startsWith(u"A música '"_qs + title.first(20)));
    QVERIFY(shown.endsWith(u"' já existe. Deseja importar?"));
    QVERIFY2(height < 768, qPrintable(QString::number(height)));
}

void tst_dialogs::a_question_is_answered_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("answer");
    QTest::newRow("Enter takes Yes") << int{Qt::Key_Return} << true;
    QTest::newRow("Esc is No") << int{Qt::Key_Escape} << false;
    QTest::newRow("the title bar's close is No") << 0 << false;
}

void tst_dialogs::a_question_is_answered()
{
    QFETCH(int, key);
    QFETCH(bool, answer);
    WithNextBox<QMessageBox>([key](QMessageBox& box) {
        QCOMPARE(box.icon(), QMessageBox::Question);
        QCOMPARE(box.windowTitle(), u"Melodario"_s);
        QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        if (key)
            QTest::keyClick(&box, static_cast<Qt::Key>(key));
        else
            box.close();
    });
    QCOMPARE(Funcoes::Pergunta(nullptr, u"Deseja?"_s), answer);
}

void tst_dialogs::an_input_box_gives_what_was_typed()
{
    WithNextBox<QInputDialog>([](QInputDialog& box) {
        QCOMPARE(box.windowTitle(), u"Melodario - Tema"_s);
        QCOMPARE(box.labelText(), u"Nome <i>"_s);
        QCOMPARE(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        QCOMPARE(box.textValue(), u"antes"_s);
        auto* edit = box.findChild<QLineEdit*>();
        edit->selectAll();
        QTest::keyClicks(edit, u"Louvor"_s);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    QCOMPARE(Funcoes::Caixa_Entrada(nullptr, u"Nome <i>"_s, u"Melodario - Tema"_s, u"antes"_s),
             u"Louvor"_s);
}

void tst_dialogs::a_held_key_answers_nothing_data()
{
    QTest::addColumn<bool>("question");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("alt");
    for (const bool question : {true, false}) {
        const char* box = question ? "question" : "message";
        QTest::addRow("Enter, %s", box) << question << int{Qt::Key_Return} << false;
        QTest::addRow("the keypad's Enter, %s", box) << question << int{Qt::Key_Enter} << false;
        QTest::addRow("Esc, %s", box) << question << int{Qt::Key_Escape} << false;
    }
    QTest::addRow("access key of a button, question") << true << int{Qt::Key_Y} << true;
}

void tst_dialogs::a_held_key_answers_nothing()
{
    QFETCH(bool, question);
    QFETCH(int, key);
    QFETCH(bool, alt);
    bool stayed = false;
    WithNextBox<QMessageBox>([&](QMessageBox& box) {
        QVERIFY(QTest::qWaitForWindowActive(&box));
        const Qt::KeyboardModifiers held = alt ? Qt::AltModifier : Qt::NoModifier;
        for (int i = 0; i < 3 && box.isVisible(); ++i)
            QTest::simulateEvent(QApplication::focusWidget(), true, key, held, QString(), true);
        // An access key presses its button at once and lets go of it a little later.
        const QAbstractButton* yes = box.button(QMessageBox::Yes);
        stayed = box.isVisible() && !(yes && yes->isDown());
        if (alt) {
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), held);
            QVERIFY(yes->isDown());
        }
    });
    if (question)
        Funcoes::Pergunta(nullptr, u"Deseja?"_s);
    else
        Funcoes::Mostra_Mensagem(nullptr, u"Olá"_s, Icone::Informacao);
    QVERIFY(stayed);
}

void tst_dialogs::an_input_box_keeps_an_initial_text_whole()
{
    // Longer than a line edit takes unless told otherwise: confirmed unchanged, nothing is lost.
    const QString name = u"Louvor "_s.repeated(6000) + u"fim"_s;
    WithNextBox<QInputDialog>(
        [](QInputDialog& box) { QTest::keyClick(box.findChild<QLineEdit*>(), Qt::Key_Return); });
    QVERIFY(Funcoes::Caixa_Entrada(nullptr, u"Nome"_s, u"Tema"_s, name) == name);
}

void tst_dialogs::an_input_box_takes_one_line_of_what_is_pasted()
{
    WithNextBox<QInputDialog>([](QInputDialog& box) {
        auto* edit = box.findChild<QLineEdit*>();
        QGuiApplication::clipboard()->setText(u"\nNatal\r\nPaz\n"_s);
        QTest::keySequence(edit, QKeySequence::Paste);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    QCOMPARE(Funcoes::Caixa_Entrada(nullptr, u"Nome"_s, u"Tema"_s, {}), u"Natal"_s);
}

void tst_dialogs::a_held_enter_leaves_an_input_box_open()
{
    bool stayed = false;
    WithNextBox<QInputDialog>([&](QInputDialog& box) {
        auto* edit = box.findChild<QLineEdit*>();
        QTest::simulateEvent(edit, true, Qt::Key_Return, Qt::NoModifier, QString(), true);
        stayed = box.isVisible();
        QTest::simulateEvent(edit, true, Qt::Key_A, Qt::NoModifier, u"a"_s, true);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    QCOMPARE(Funcoes::Caixa_Entrada(nullptr, u"Nome"_s, u"Tema"_s, {}), u"a"_s);
    QVERIFY(stayed);
}

void tst_dialogs::an_input_box_that_is_cancelled_gives_an_empty_text()
{
    WithNextBox<QInputDialog>([](QInputDialog& box) { box.reject(); });
    QCOMPARE(Funcoes::Caixa_Entrada(nullptr, u"Nome"_s, u"Tema"_s, u"antes"_s), QString());
}

void tst_dialogs::an_input_box_stands_where_it_was_asked_to()
{
    QPoint corner;
    WithNextBox<QInputDialog>([&](QInputDialog& box) { corner = box.pos(); });
    Funcoes::Caixa_Entrada(nullptr, u"Nome"_s, u"Tema"_s, {}, QPoint(683, 384));
    QCOMPARE(corner, QPoint(683, 384));
}

void tst_dialogs::an_input_box_keeps_its_buttons_on_the_screen_data()
{
    QTest::addColumn<int>("room"); // pixels between the corner and the screen's right edge
    QTest::newRow("at the middle") << QGuiApplication::primaryScreen()->geometry().width() / 2;
    QTest::newRow("where there is little room") << 330;
}

void tst_dialogs::an_input_box_keeps_its_buttons_on_the_screen()
{
    QFETCH(int, room);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QPoint corner(screen.right() + 1 - room, screen.center().y());
    QRect shown;
    WithNextBox<QInputDialog>([&](QInputDialog& box) {
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        shown = box.frameGeometry();
    });
    Funcoes::Caixa_Entrada(nullptr, u"Digite o novo nome do Tema"_s,
                           u"Melodario - Alteração de Tema"_s, u"Sem Tema"_s, corner);
    QCOMPARE(shown.topLeft(), corner);
    QVERIFY2(screen.contains(shown), qPrintable(QString::number(shown.width())));
}

void tst_dialogs::a_box_may_go_with_its_form_while_open()
{
    auto* form = new QWidget;
    QTimer::singleShot(0, form, [form] { delete form; });
    QVERIFY(!Funcoes::Pergunta(form, u"Deseja?"_s));
}

void tst_dialogs::a_test_may_put_its_own_door_in_place()
{
    {
        RecordingDialogs door;
        Funcoes::Mostra_Mensagem(nullptr, u"Olá"_s, Icone::Informacao);
        QCOMPARE(door.boxes.size(), 1);
        QCOMPARE(&CurrentDialogs(), &door);
    }
    QCOMPARE(SetDialogs(nullptr), nullptr);
}

QTEST_MAIN(tst_dialogs)
#include "tst_dialogs.moc"
