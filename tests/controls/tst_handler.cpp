#include "controls/Handler.h"

#include "RecordingDialogs.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QEventLoop>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <memory>
#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void FailAs(int number, const QString& text = u"Não deu certo."_s)
{
    throw RuntimeError(number, text, u"it failed"_s);
}

QString BoxTextOfFailing(const QString& sql)
{
    try {
        Funcoes::Conexao.Execute(sql);
    } catch (const RuntimeError& error) {
        return error.WhatFailed() + u"\n\n"_s + error.Description();
    }
    return u"(did not fail)"_s;
}

/// What is told when somebody reads the catalogue at the moment of a commit.
const QString CommitFailed =
    u"O banco de dados está sendo usado por outro programa. As alterações desta operação foram "
    "desfeitas.\n\ndatabase is locked (5)"_s;

/// Stands for what start-up throws to end the program: no error.
struct EndOfProgram
{
};

} // namespace

class tst_handler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_catalogue = std::make_unique<TestCatalogue>(); }

    void init()
    {
        m_catalogue->Run(u"DELETE FROM MUSICA"_s);
        Funcoes::Conexao.Open(m_catalogue->ConnectionString());
        m_dialogs = std::make_unique<RecordingDialogs>();
    }

    void cleanup()
    {
        m_dialogs.reset();
        if (Funcoes::Conexao.IsOpen())
            Funcoes::Conexao.Close();
    }

    void a_failing_statement_in_a_click_is_told_once_and_the_program_lives();
    void a_failing_statement_in_a_timer_tick_is_told_once_although_it_ticks_on();
    void a_failing_statement_in_a_nested_event_loop_ends_only_the_inner_handler();
    void a_statement_after_closing_is_told_like_any_other();
    void every_kind_of_exception_is_told_data();
    void every_kind_of_exception_is_told();
    void a_description_is_left_out_when_there_is_none();
    void the_same_failure_is_silent_while_its_box_is_open();
    void another_failure_is_told_while_a_box_is_open();
    void after_the_box_is_closed_the_same_failure_is_told_again();
    void what_is_no_error_passes();
    void the_batch_is_committed_when_the_outermost_handler_ends();
    void the_batch_is_committed_also_after_an_error_and_before_its_box();
    void handlers_inside_an_open_box_commit_when_they_end();
    void a_silent_inner_failure_leaves_the_outer_action_whole();
    void a_commit_that_fails_is_told();
    void an_unattended_failure_is_told_again_after_a_clean_run();
    void an_unattended_handler_tells_another_failure_data();
    void an_unattended_handler_tells_another_failure();
    void an_unattended_commit_that_fails_is_told_beside_the_handlers_own_failure();
    void an_unattended_commit_that_fails_is_told_once();
    void a_purposeful_handler_tells_each_time();
    void handlers_may_take_fewer_arguments();
    void a_member_function_is_a_handler();
    void closing_the_form_inside_its_own_handler_is_harmless();

public:
    void Note(int number) { m_noted.append(number); }

signals:
    void Happened(int /*number*/, const QString& /*text*/);

private:
    int Songs() const { return m_catalogue->Field(u"SELECT COUNT(*) FROM MUSICA"_s).toInt(); }

    static void AddSong()
    {
        Funcoes::Conexao.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('Asa Branca')"_s);
    }

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<RecordingDialogs> m_dialogs;
    QList<int> m_noted;
};

void tst_handler::a_failing_statement_in_a_click_is_told_once_and_the_program_lives()
{
    const QString statement = u"SELECT NADA FROM MUSICA"_s;
    const QString expected = BoxTextOfFailing(statement);
    QPushButton button;
    bool reached = false;
    ConnectHandler(&button, &QPushButton::clicked, &button, [&] {
        Funcoes::Conexao.Execute(statement);
        reached = true;
    });
    button.click();
    QVERIFY(!reached);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text, expected);
    QCOMPARE(m_dialogs->boxes[0].title, u"Melodario"_s);
    QCOMPARE(m_dialogs->boxes[0].icon, Icone::Critico);
    QCOMPARE(Funcoes::Conexao.Execute(u"SELECT * FROM MUSICA"_s).RecordCount(), 0);
}

void tst_handler::a_failing_statement_in_a_timer_tick_is_told_once_although_it_ticks_on()
{
    const QString statement = u"SELECT NADA FROM MUSICA"_s;
    const QString expected = BoxTextOfFailing(statement);
    QTimer timer;
    int ticks = 0;
    ConnectUnattended(&timer, &QTimer::timeout, this, [&] {
        ++ticks;
        Funcoes::Conexao.Execute(statement);
    });
    timer.start(1);
    QTRY_VERIFY(ticks >= 5);
    QVERIFY(timer.isActive());
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text, expected);
}

void tst_handler::a_failing_statement_in_a_nested_event_loop_ends_only_the_inner_handler()
{
    const QString statement = u"SELECT NADA FROM MUSICA"_s;
    const QString expected = BoxTextOfFailing(statement);
    QPushButton inner;
    ConnectHandler(&inner, &QPushButton::clicked, &inner,
                   [&] { Funcoes::Conexao.Execute(statement); });
    QPushButton outer;
    bool outerEnded = false;
    ConnectHandler(&outer, &QPushButton::clicked, &outer, [&] {
        QEventLoop loop;
        QTimer::singleShot(0, &inner, [&] { inner.click(); });
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
        outerEnded = true;
    });
    outer.click();
    QVERIFY(outerEnded);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text, expected);
}

void tst_handler::a_statement_after_closing_is_told_like_any_other()
{
    Funcoes::Conexao.Close();
    const QString expected = BoxTextOfFailing(u"SELECT * FROM MUSICA"_s);
    QVERIFY(!RunHandler([] { Funcoes::Conexao.Execute(u"SELECT * FROM MUSICA"_s); }));
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text, expected);
}

void tst_handler::every_kind_of_exception_is_told_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("an error of ours") << 0 << u"Não deu certo.\n\nit failed"_s;
    QTest::newRow("no memory") << 1
                               << (u"Não há memória suficiente para isso.\n\n"_s +
                                   QString::fromLatin1(std::bad_alloc().what()));
    QTest::newRow("the library's") << 2 << u"Ocorreu um erro inesperado.\n\nação"_s;
}

void tst_handler::every_kind_of_exception_is_told()
{
    QFETCH(int, kind);
    QFETCH(QString, text);
    const bool ended = RunHandler([kind] {
        if (kind == 0)
            FailAs(RuntimeError::Overflow);
        if (kind == 1)
            throw std::bad_alloc();
        throw std::runtime_error("ação");
    });
    QVERIFY(!ended);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text, text);
}

void tst_handler::a_description_is_left_out_when_there_is_none()
{
    RunHandler([] { throw RuntimeError(RuntimeError::FileFailure, u"Não deu."_s, {}); });
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].text, u"Não deu."_s);
}

void tst_handler::the_same_failure_is_silent_while_its_box_is_open()
{
    bool innerEnded = true;
    m_dialogs->whileOpen = [&] {
        innerEnded = RunHandler([] { FailAs(RuntimeError::Overflow, u"Outra vez."_s); });
    };
    RunHandler([] { FailAs(RuntimeError::Overflow); });
    QVERIFY(!innerEnded);
    QCOMPARE(m_dialogs->boxes.size(), 1);
}

void tst_handler::another_failure_is_told_while_a_box_is_open()
{
    int open = 0;
    m_dialogs->whileOpen = [&] {
        if (++open == 1)
            RunHandler([] { FailAs(RuntimeError::TypeMismatch, u"Outro."_s); });
    };
    RunHandler([] { FailAs(RuntimeError::Overflow); });
    QCOMPARE(m_dialogs->boxes.size(), 2);
    QCOMPARE(m_dialogs->boxes[1].text, u"Outro.\n\nit failed"_s);
}

void tst_handler::after_the_box_is_closed_the_same_failure_is_told_again()
{
    RunHandler([] { FailAs(RuntimeError::Overflow); });
    RunHandler([] { FailAs(RuntimeError::Overflow); });
    QCOMPARE(m_dialogs->boxes.size(), 2);
}

void tst_handler::what_is_no_error_passes()
{
    bool passed = false;
    try {
        RunHandler([] { throw EndOfProgram(); });
    } catch (const EndOfProgram&) {
        passed = true;
    }
    QVERIFY(passed);
    QVERIFY(m_dialogs->boxes.isEmpty());

    // The levels still count right: this one is outermost and commits.
    RunHandler(AddSong);
    QCOMPARE(Songs(), 1);
}

void tst_handler::the_batch_is_committed_when_the_outermost_handler_ends()
{
    int after_inner = -1;
    RunHandler([&] {
        AddSong();
        RunHandler(AddSong);
        after_inner = Songs();
    });
    QCOMPARE(after_inner, 0);
    QCOMPARE(Songs(), 2);
}

void tst_handler::the_batch_is_committed_also_after_an_error_and_before_its_box()
{
    int whenTold = -1;
    m_dialogs->whileOpen = [&] { whenTold = Songs(); };
    RunHandler([] {
        AddSong();
        FailAs(RuntimeError::Overflow);
    });
    QCOMPARE(whenTold, 1);
    QCOMPARE(Songs(), 1);
}

void tst_handler::handlers_inside_an_open_box_commit_when_they_end()
{
    int before = -1;
    int whileOpen = -1;
    m_dialogs->whileOpen = [&] {
        before = Songs();
        RunHandler(AddSong);
        whileOpen = Songs();
    };
    RunHandler([] {
        AddSong();
        Funcoes::Pergunta(nullptr, u"Continuar?"_s);
    });
    QCOMPARE(before, 1);
    QCOMPARE(whileOpen, 2);
}

void tst_handler::a_silent_inner_failure_leaves_the_outer_action_whole()
{
    Unattended tick;
    const auto fail = [] { FailAs(RuntimeError::Overflow); };
    tick.Run(fail);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    int halfWay = -1;
    RunHandler([&] {
        AddSong();
        tick.Run(fail);
        halfWay = Songs();
        AddSong();
    });
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(halfWay, 0);
    QCOMPARE(Songs(), 2);
}

void tst_handler::a_commit_that_fails_is_told()
{
    // Somebody who is reading at the moment of the commit keeps it from happening.
    PlainSqlite reader(m_catalogue->Path());
    reader.Run("BEGIN; SELECT * FROM MUSICA");
    QVERIFY(!RunHandler(AddSong));
    reader.Run("COMMIT");
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].icon, Icone::Critico);
    QCOMPARE(m_dialogs->boxes[0].text, CommitFailed);
    QCOMPARE(Songs(), 0);
}

void tst_handler::an_unattended_failure_is_told_again_after_a_clean_run()
{
    Unattended tick;
    const auto fail = [] { FailAs(RuntimeError::Overflow); };
    tick.Run(fail);
    tick.Run(fail);
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(tick.Run([] {}));
    tick.Run(fail);
    tick.Run(fail);
    QCOMPARE(m_dialogs->boxes.size(), 2);
}

void tst_handler::an_unattended_handler_tells_another_failure_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("whatFailed");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("boxes");
    const int refused = RuntimeError::StoreFailure;
    const QString command = u"O banco de dados recusou um comando."_s;
    QTest::newRow("the same") << refused << command << u"syntax error"_s << 1;
    QTest::newRow("another number")
        << int{RuntimeError::Overflow} << command << u"syntax error"_s << 2;
    QTest::newRow("another sentence")
        << refused << u"O disco está cheio."_s << u"syntax error"_s << 2;
    QTest::newRow("other words") << refused << command << u"no such table"_s << 2;
}

void tst_handler::an_unattended_handler_tells_another_failure()
{
    QFETCH(int, number);
    QFETCH(QString, whatFailed);
    QFETCH(QString, description);
    QFETCH(int, boxes);
    Unattended tick;
    tick.Run([] {
        throw RuntimeError(RuntimeError::StoreFailure, u"O banco de dados recusou um comando."_s,
                           u"syntax error"_s);
    });
    tick.Run([&] { throw RuntimeError(number, whatFailed, description); });
    QCOMPARE(m_dialogs->boxes.size(), boxes);
}

void tst_handler::an_unattended_commit_that_fails_is_told_beside_the_handlers_own_failure()
{
    PlainSqlite reader(m_catalogue->Path());
    reader.Run("BEGIN; SELECT * FROM MUSICA");
    Unattended tick;
    const auto fail = [] {
        AddSong();
        FailAs(RuntimeError::StoreFailure);
    };
    for (int run = 0; run < 3; ++run)
        tick.Run(fail);
    reader.Run("COMMIT");
    // Both once: neither counts as the failure that was shown last for the other.
    QCOMPARE(m_dialogs->boxes.size(), 2);
    QCOMPARE(m_dialogs->boxes[0].text, u"Não deu certo.\n\nit failed"_s);
    QCOMPARE(m_dialogs->boxes[1].text, CommitFailed);
    QCOMPARE(Songs(), 0);
}

void tst_handler::an_unattended_commit_that_fails_is_told_once()
{
    Unattended tick;
    PlainSqlite reader(m_catalogue->Path());
    for (int round = 1; round <= 2; ++round) {
        reader.Run("BEGIN; SELECT * FROM MUSICA");
        tick.Run(AddSong);
        tick.Run(AddSong);
        reader.Run("COMMIT");
        QCOMPARE(m_dialogs->boxes.size(), round);
        QVERIFY(tick.Run(AddSong));
    }
    QCOMPARE(Songs(), 2);
}

void tst_handler::a_purposeful_handler_tells_each_time()
{
    QPushButton button;
    ConnectHandler(&button, &QPushButton::clicked, &button, [] { FailAs(RuntimeError::Overflow); });
    button.click();
    button.click();
    QCOMPARE(m_dialogs->boxes.size(), 2);
}

void tst_handler::handlers_may_take_fewer_arguments()
{
    QStringList calls;
    ConnectHandler(this, &tst_handler::Happened, this, [&] { calls.append(u"none"_s); });
    ConnectHandler(this, &tst_handler::Happened, this,
                   [&](int number) { calls.append(QString::number(number)); });
    ConnectUnattended(this, &tst_handler::Happened, this, [&](int number, const QString& text) {
        calls.append(QString::number(number) + text);
    });
    emit Happened(7, u"x"_s);
    QCOMPARE(calls, QStringList({u"none"_s, u"7"_s, u"7x"_s}));
    disconnect(this, &tst_handler::Happened, nullptr, nullptr);
}

void tst_handler::a_member_function_is_a_handler()
{
    m_noted.clear();
    ConnectHandler(this, &tst_handler::Happened, this, &tst_handler::Note);
    emit Happened(3, u"x"_s);
    QCOMPARE(m_noted, QList<int>({3}));
    disconnect(this, &tst_handler::Happened, nullptr, nullptr);
}

void tst_handler::closing_the_form_inside_its_own_handler_is_harmless()
{
    auto* form = new QObject;
    auto* timer = new QTimer(form);
    bool ran = false;
    ConnectUnattended(timer, &QTimer::timeout, form, [&ran, form] {
        ran = true;
        delete form;
        FailAs(RuntimeError::Overflow);
    });
    timer->start(0);
    QTRY_VERIFY(ran);
    QCOMPARE(m_dialogs->boxes.size(), 1);
}

QTEST_MAIN(tst_handler)
#include "tst_handler.moc"
