#include "controls/Dialogs.h"

#include "RecordingDialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
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
    void a_question_is_answered_data();
    void a_question_is_answered();
    void an_input_box_gives_what_was_typed();
    void an_input_box_that_is_cancelled_gives_an_empty_text();
    void an_input_box_stands_where_it_was_asked_to();
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
