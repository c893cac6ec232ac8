#include "controls/ItemModel.h"

#include "runtime/RuntimeError.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

template <typename Work>
int ErrorOf(Work work)
{
    try {
        work();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

} // namespace

class tst_item_model : public QObject
{
    Q_OBJECT

private slots:
    void it_keeps_the_rules_of_a_model();
    void views_learn_of_a_fill_at_once();
    void fills_nest();
    void the_index_added_last_follows_removals();
    void an_index_without_item_is_refused_data();
    void an_index_without_item_is_refused();
    void check_marks_show_only_when_asked_for();
};

void tst_item_model::it_keeps_the_rules_of_a_model()
{
    ItemModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int i = 0; i < 5; ++i)
        model.Append(QString::number(i));
    model.SetData(2, 42);
    model.SetText(2, u"dois"_s);
    model.SetCheckable(true);
    model.SetChecked(1, true);
    QVERIFY(model.setData(model.index(3), Qt::Checked, Qt::CheckStateRole));
    model.Remove(0);
    model.BeginFill();
    model.Append(u"novo"_s);
    model.Append(u"mais"_s);
    model.Remove(5);
    model.EndFill();
    QCOMPARE(model.rowCount(), 5);
    QCOMPARE(model.index(1).data().toString(), u"dois"_s);
    QCOMPARE(model.index(1).data(Qt::UserRole).toLongLong(), 42);
    QCOMPARE(model.index(0).data(Qt::CheckStateRole).toInt(), int{Qt::Checked});
    QCOMPARE(model.index(2).data(Qt::CheckStateRole).toInt(), int{Qt::Checked});
    QCOMPARE(model.index(4).data().toString(), u"novo"_s);
    model.Clear();
    QCOMPARE(model.rowCount(), 0);
}

void tst_item_model::views_learn_of_a_fill_at_once()
{
    ItemModel model;
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.BeginFill();
    for (int i = 0; i < 1000; ++i) {
        model.Append(QString::number(i));
        model.SetData(model.NewIndex(), i);
    }
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.Count(), 1000);
    QCOMPARE(model.Data(999), 999);
    model.EndFill();
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(model.rowCount(), 1000);
}

void tst_item_model::fills_nest()
{
    ItemModel model;
    model.BeginFill();
    model.BeginFill();
    model.Append(u"a"_s);
    model.EndFill();
    QCOMPARE(model.rowCount(), 0);
    model.EndFill();
    QCOMPARE(model.rowCount(), 1);
}

void tst_item_model::the_index_added_last_follows_removals()
{
    ItemModel model;
    QCOMPARE(model.NewIndex(), -1);
    model.Append(u"a"_s);
    model.Append(u"b"_s);
    QCOMPARE(model.NewIndex(), 1);
    model.Remove(0);
    QCOMPARE(model.NewIndex(), 0);
    model.Remove(0);
    QCOMPARE(model.NewIndex(), -1);
}

void tst_item_model::an_index_without_item_is_refused_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none") << -1;
    QTest::newRow("behind the last") << 2;
}

void tst_item_model::an_index_without_item_is_refused()
{
    QFETCH(int, index);
    ItemModel model;
    model.Append(u"a"_s);
    model.Append(u"b"_s);
    QCOMPARE(ErrorOf([&] { model.Data(index); }), int{RuntimeError::InvalidIndex});
    QCOMPARE(ErrorOf([&] { model.SetData(index, 1); }), int{RuntimeError::InvalidIndex});
    QCOMPARE(ErrorOf([&] { model.Text(index); }), int{RuntimeError::InvalidIndex});
    QCOMPARE(ErrorOf([&] { model.SetText(index, {}); }), int{RuntimeError::InvalidIndex});
    QCOMPARE(ErrorOf([&] { model.SetChecked(index, true); }), int{RuntimeError::InvalidIndex});
    QCOMPARE(ErrorOf([&] { model.Remove(index); }), int{RuntimeError::InvalidIndex});
    QCOMPARE(model.Count(), 2);
}

void tst_item_model::check_marks_show_only_when_asked_for()
{
    ItemModel model;
    model.Append(u"a"_s);
    QVERIFY(!model.index(0).data(Qt::CheckStateRole).isValid());
    QVERIFY(!model.setData(model.index(0), Qt::Checked, Qt::CheckStateRole));
    model.SetCheckable(true);
    QCOMPARE(model.index(0).data(Qt::CheckStateRole).toInt(), int{Qt::Unchecked});
}

QTEST_GUILESS_MAIN(tst_item_model)
#include "tst_item_model.moc"
