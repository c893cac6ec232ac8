#include "controls/FileDialogs.h"

#include "RecordingFileDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Does something with the next picker as soon as it is open.
void WithNextPicker(const std::function<void(QFileDialog&)>& act)
{
    QTimer::singleShot(0, [act] {
        const QPointer<QFileDialog> box =
            qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(box);
        act(*box);
        if (box && box->isVisible())
            box->reject();
    });
}

void TypeName(QFileDialog& box, const QString& name)
{
    auto* edit = box.findChild<QLineEdit*>(u"fileNameEdit"_s);
    QVERIFY(edit);
    edit->selectAll();
    edit->insert(name); // simulated keys know no accents
    QTest::keyClick(edit, Qt::Key_Return);
}

Pedido_Arquivo Save(const QString& folder)
{
    return {.especie = Pedido_Arquivo::Salvar,
            .titulo = u"Salvar Arquivo"_s,
            .filtro = u"Arquivo do Melodario (*.mld)|*.mld"_s,
            .extensao = u"*.mld"_s,
            .pasta = folder};
}

} // namespace

class tst_file_dialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init();

    void a_picker_is_what_it_was_asked_to_be();
    void a_filter_shows_its_descriptions_data();
    void a_filter_shows_its_descriptions();
    void the_extension_is_added_when_missing_data();
    void the_extension_is_added_when_missing();
    void an_existing_file_is_chosen_for_saving_without_a_question();
    void a_file_is_opened_from_where_it_lies();
    void a_folder_is_picked();
    void cancelling_gives_an_empty_text();
    void a_picker_begins_where_the_last_one_ended();
    void a_held_enter_leaves_the_picker_open();
    void a_picker_may_go_with_its_form_while_open();
    void a_test_may_put_its_own_door_in_place();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString Path(const QString& name) const
    {
        return QDir::toNativeSeparators(m_folder->filePath(name));
    }
    void Put(const QString& name) const
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write("velho"), qint64{5});
    }
};

void tst_file_dialogs::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_file_dialogs::a_picker_is_what_it_was_asked_to_be()
{
    QWidget form;
    bool seen = false;
    WithNextPicker([&](QFileDialog& box) {
        seen = true;
        QCOMPARE(box.windowTitle(), u"Salvar Arquivo"_s);
        QCOMPARE(box.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(box.nameFilters(), QStringList{u"Arquivo do Melodario (*.mld)"_s});
        QCOMPARE(box.directory().canonicalPath(), QDir(m_folder->path()).canonicalPath());
        QCOMPARE(box.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), QString());
        QCOMPARE(box.parentWidget(), &form);
        QCOMPARE(box.objectName(), u"CommonDialog"_s);
        QVERIFY(box.isModal());
    });
    QCOMPARE(Funcoes::Escolhe_Arquivo(&form, Save(m_folder->path())), QString());
    QVERIFY(seen);
}

void tst_file_dialogs::a_filter_shows_its_descriptions_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("one that names its pattern")
        << u"Textos (*.txt)|*.txt"_s << QStringList{u"Textos (*.txt)"_s};
    QTest::newRow("blanks around the bar")
        << u"Textos (*.txt) | *.txt"_s << QStringList{u"Textos (*.txt)"_s};
    QTest::newRow("one that does not, with two patterns")
        << u"Textos|*.txt;*.md"_s << QStringList{u"Textos (*.txt *.md)"_s};
    QTest::newRow("two") << u"Textos|*.txt|Tudo|*"_s
                         << QStringList{u"Textos (*.txt)"_s, u"Tudo (*)"_s};
}

void tst_file_dialogs::a_filter_shows_its_descriptions()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, shown);
    QStringList seen;
    WithNextPicker([&](QFileDialog& box) { seen = box.nameFilters(); });
    Funcoes::Escolhe_Arquivo(nullptr, {.titulo = u"Abrir"_s, .filtro = filter});
    QCOMPARE(seen, shown);
}

void tst_file_dialogs::the_extension_is_added_when_missing_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << u"missa"_s << u"missa.mld"_s;
    QTest::newRow("there") << u"missa.mld"_s << u"missa.mld"_s;
    QTest::newRow("there in capitals") << u"MISSA.MLD"_s << u"MISSA.MLD"_s;
    QTest::newRow("a dot of the name's own") << u"missa 7.11"_s << u"missa 7.11.mld"_s;
    QTest::newRow("another extension") << u"missa.txt"_s << u"missa.txt.mld"_s;
    QTest::newRow("accents and blanks") << u"canções de sábado"_s << u"canções de sábado.mld"_s;
}

void tst_file_dialogs::the_extension_is_added_when_missing()
{
    QFETCH(QString, typed);
    QFETCH(QString, name);
    WithNextPicker([&](QFileDialog& box) { TypeName(box, typed); });
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, Save(m_folder->path())), Path(name));
}

void tst_file_dialogs::an_existing_file_is_chosen_for_saving_without_a_question()
{
    Put(u"missa.mld"_s);
    bool asked = false;
    WithNextPicker([&](QFileDialog& box) {
        QTimer::singleShot(0, &box, [&asked] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            asked = question != nullptr;
            if (question)
                question->reject();
        });
        TypeName(box, u"missa.mld"_s);
    });
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, Save(m_folder->path())), Path(u"missa.mld"_s));
    QVERIFY(!asked);
}

void tst_file_dialogs::a_file_is_opened_from_where_it_lies()
{
    Put(u"missa.mld"_s);
    WithNextPicker([&](QFileDialog& box) {
        QCOMPARE(box.acceptMode(), QFileDialog::AcceptOpen);
        TypeName(box, u"missa.mld"_s);
    });
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, {.especie = Pedido_Arquivo::Abrir,
                                                .titulo = u"Importar..."_s,
                                                .filtro = u"Tudo|*"_s,
                                                .extensao = u"txt"_s,
                                                .pasta = m_folder->path()}),
             Path(u"missa.mld"_s));
}

void tst_file_dialogs::a_folder_is_picked()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"Missas de março"_s));
    WithNextPicker([&](QFileDialog& box) {
        QCOMPARE(box.windowTitle(), u"Selecione a pasta destino"_s);
        QCOMPARE(box.fileMode(), QFileDialog::Directory);
        QVERIFY(box.testOption(QFileDialog::ShowDirsOnly));
        TypeName(box, u"Missas de março"_s);
    });
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, {.especie = Pedido_Arquivo::Pasta,
                                                .titulo = u"Selecione a pasta destino"_s,
                                                .pasta = m_folder->path()}),
             Path(u"Missas de março"_s));
}

void tst_file_dialogs::cancelling_gives_an_empty_text()
{
    for (const auto kind : {Pedido_Arquivo::Abrir, Pedido_Arquivo::Salvar, Pedido_Arquivo::Pasta}) {
        WithNextPicker([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, {.especie = kind,
                                                    .titulo = u"Título"_s,
                                                    .extensao = u"mld"_s,
                                                    .pasta = m_folder->path()}),
                 QString());
    }
}

void tst_file_dialogs::a_picker_begins_where_the_last_one_ended()
{
    WithNextPicker([](QFileDialog& box) { TypeName(box, u"missa"_s); });
    QVERIFY(!Funcoes::Escolhe_Arquivo(nullptr, Save(m_folder->path())).isEmpty());
    QString begins;
    WithNextPicker([&](QFileDialog& box) { begins = box.directory().canonicalPath(); });
    Funcoes::Escolhe_Arquivo(nullptr, {.titulo = u"Abrir"_s});
    QCOMPARE(begins, QDir(m_folder->path()).canonicalPath());

    // A stick that was pulled out meanwhile: the user's documents again.
    m_folder.reset();
    RecordingFileDialogs door;
    Funcoes::Escolhe_Arquivo(nullptr, {.titulo = u"Abrir"_s});
    QCOMPARE(door.requests.last().pasta,
             QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

void tst_file_dialogs::a_held_enter_leaves_the_picker_open()
{
    bool stayed = false;
    WithNextPicker([&](QFileDialog& box) {
        auto* edit = box.findChild<QLineEdit*>(u"fileNameEdit"_s);
        QTest::keyClicks(edit, u"missa"_s);
        for (int i = 0; i < 3; ++i)
            QTest::simulateEvent(edit, true, Qt::Key_Return, Qt::NoModifier, QString(), true);
        stayed = box.isVisible();
    });
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, Save(m_folder->path())), QString());
    QVERIFY(stayed);
}

void tst_file_dialogs::a_picker_may_go_with_its_form_while_open()
{
    auto* form = new QWidget;
    WithNextPicker([form](QFileDialog&) { delete form; });
    QCOMPARE(Funcoes::Escolhe_Arquivo(form, Save(m_folder->path())), QString());
}

void tst_file_dialogs::a_test_may_put_its_own_door_in_place()
{
    RecordingFileDialogs door;
    door.chosen = {u"/pasta/missa"_s};
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, Save(m_folder->path())),
             QDir::toNativeSeparators(u"/pasta/missa.mld"_s));
    QCOMPARE(door.requests.size(), 1);
    QCOMPARE(door.requests[0].titulo, u"Salvar Arquivo"_s);
    QCOMPARE(Funcoes::Escolhe_Arquivo(nullptr, Save(m_folder->path())), QString());
}

QTEST_MAIN(tst_file_dialogs)
#include "tst_file_dialogs.moc"
