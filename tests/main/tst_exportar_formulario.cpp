#include "ExportarTeste.h"

#include "exchange/frmExportar.h"

#include <QLabel>

namespace {

/// Notes who owns each picker.
class Donos final : public FileDialogs
{
public:
    Donos() { SetFileDialogs(this); }
    ~Donos() override { SetFileDialogs(nullptr); }

    QString Choose(QWidget* parent, const Pedido_Arquivo&) override
    {
        donos.append(parent);
        return QString();
    }

    QList<QWidget*> donos;
};

/// Does something when a widget is hidden.
class Ao_Ocultar final : public QObject
{
public:
    Ao_Ocultar(QWidget& widget, std::function<void()> age)
        : m_age(std::move(age))
    {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* evento) override
    {
        if (evento->type() == QEvent::Hide)
            m_age();
        return false;
    }

private:
    std::function<void()> m_age;
};

} // namespace

/// What the export form shows and does in the order in which it does it.
class tst_exportar_formulario : public ExportarTeste
{
    Q_OBJECT

private slots:
    void the_title_before_songs_are_listed();
    void a_marked_song_without_themes_is_not_listed_but_exported();
    void both_pickers_belong_to_the_form();
    void the_list_cannot_be_changed();
    void the_bar_goes_before_the_file_comes();
    void the_focus_is_on_the_bar_and_comes_back();
    void a_search_that_was_waiting_changes_nothing();
    void the_main_form_closed_while_a_box_is_open_data();
    void the_main_form_closed_while_a_box_is_open();
};

void tst_exportar_formulario::the_title_before_songs_are_listed()
{
    Carrega_Exportar();
    const frmExportar form(*m_form, m_form.get());
    QCOMPARE(No<QLabel>(form, "lblTitulo")->text(), u"As músicas abaixo serão exportadas. "_qs);
}

void tst_exportar_formulario::a_marked_song_without_themes_is_not_listed_but_exported()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega_Exportar();
    Marca({0, 1});
    m_catalogo->Run(u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 2"_qs);
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    QVERIFY(No_Formulario([](QDialog& form) {
        QCOMPARE(No<QLabel>(form, "lblTitulo")->text(),
                 u"A(s) 1 música(s) abaixo serão exportadas."_qs);
        const auto* lista = No<QAbstractItemView>(form, "lstExportar");
        QCOMPARE(lista->model()->rowCount(), 1);
        Aperta(form, "cmdExportar");
    }));
    QByteArray sem_tema = Linhas("Bem");
    sem_tema.replace("           <descricao>Louvor</descricao>\r\n", "");
    QCOMPARE(Conteudo(u"a.mld"_qs), Documento(Linhas("Amor") + sem_tema));
}

void tst_exportar_formulario::both_pickers_belong_to_the_form()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas.reset();
    const Donos donos;
    QVERIFY(No_Formulario([&donos](QDialog& form) {
        Aperta(form, "cmdExportar");
        QTest::keyClick(No<QWidget>(form, "chkArquivo"), Qt::Key_Space);
        Aperta(form, "cmdExportar");
        QCOMPARE(donos.donos, QList<QWidget*>({&form, &form}));
    }));
}

void tst_exportar_formulario::the_list_cannot_be_changed()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega_Exportar();
    Marca({0, 1});
    QVERIFY(No_Formulario([](QDialog& form) {
        auto* lista = No<QAbstractItemView>(form, "lstExportar");
        const QModelIndex primeira = lista->model()->index(0, 0);
        const QString antes = primeira.data().toString();
        lista->setFocus();
        const QPoint lugar = lista->visualRect(primeira).center();
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lugar);
        QTest::mouseDClick(lista->viewport(), Qt::LeftButton, {}, lugar);
        for (const Qt::Key tecla : {Qt::Key_F2, Qt::Key_X, Qt::Key_Delete, Qt::Key_Backspace})
            QTest::keyClick(lista, tecla);
        QVERIFY(!lista->viewport()->findChild<QLineEdit*>());
        QVERIFY(!(primeira.flags() & Qt::ItemIsEditable));
        QVERIFY(form.isVisible());
        QCOMPARE(lista->model()->rowCount(), 2);
        QCOMPARE(lista->model()->index(0, 0).data().toString(), antes);
    }));
    QCOMPARE(m_catalogo->Rows(u"SELECT COUNT(*) FROM MUSICA"_qs)[0][0], u"2"_qs);
}

void tst_exportar_formulario::the_bar_goes_before_the_file_comes()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    QStringList passos;
    QVERIFY(No_Formulario([&](QDialog& form) {
        const auto* barra = No<QProgressBar>(form, "ProgressBar");
        const Ao_Ocultar oculta(*No<QProgressBar>(form, "ProgressBar"), [&] {
            passos += Arquivos().isEmpty() ? u"bar hidden"_qs : u"bar hidden late"_qs;
        });
        m_caixas->whileOpen = [&] {
            passos += barra->isVisible() ? u"message over the bar"_qs : u"message"_qs;
        };
        Aperta(form, "cmdExportar");
    }));
    m_caixas->whileOpen = nullptr;
    QCOMPARE(passos, QStringList({u"bar hidden"_qs, u"message"_qs}));
}

void tst_exportar_formulario::the_focus_is_on_the_bar_and_comes_back()
{
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    QStringList focos;
    QVERIFY(No_Formulario([&](QDialog& form) {
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTRY_VERIFY(No<QWidget>(form, "cmdExportar")->hasFocus());
        const auto* barra = No<QProgressBar>(form, "ProgressBar");
        QTimer relogio;
        connect(&relogio, &QTimer::timeout, &form, [&] {
            if (barra->isVisible())
                focos += form.focusWidget()->objectName();
        });
        relogio.start(0);
        m_caixas->whileOpen = [&] { focos += form.focusWidget()->objectName(); };
        Aperta(form, "cmdExportar");
    }));
    m_caixas->whileOpen = nullptr;
    focos.removeDuplicates();
    QCOMPARE(focos, QStringList({u"ProgressBar"_qs, u"cmdExportar"_qs}));
}

void tst_exportar_formulario::a_search_that_was_waiting_changes_nothing()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega_Exportar();
    Marca({1});
    QTest::keyClicks(Acha<QLineEdit>("txtTitulo"), u"amor"_qs);
    QVERIFY(Acha<QTimer>("Timer1")->isActive());
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    QVERIFY(No_Formulario([this](QDialog& form) {
        QTRY_COMPARE(m_lista->model()->index(0, 0).data().toString(), u"Amor (C)"_qs);
        const auto* lista = No<QAbstractItemView>(form, "lstExportar");
        QCOMPARE(lista->model()->rowCount(), 1);
        QCOMPARE(lista->model()->index(0, 0).data().toString(), u"Bem (C)"_qs);
        Aperta(form, "cmdExportar");
    }));
    QCOMPARE(Conteudo(u"a.mld"_qs), Documento(Linhas("Bem")));
}

void tst_exportar_formulario::the_main_form_closed_while_a_box_is_open_data()
{
    QTest::addColumn<bool>("picker");
    QTest::newRow("picker") << true;
    QTest::newRow("success message") << false;
}

void tst_exportar_formulario::the_main_form_closed_while_a_box_is_open()
{
    QFETCH(bool, picker);
    Musica(u"Luz"_qs);
    Carrega_Exportar();
    Marca({0});
    m_escolhas->chosen = {Caminho(u"a.mld"_qs)};
    const auto fecha = [this] { m_form->close(); };
    if (picker)
        m_escolhas->whileOpen = fecha;
    else
        m_caixas->whileOpen = fecha;
    QVERIFY(No_Formulario([](QDialog& form) { Aperta(form, "cmdExportar"); }));
    m_caixas->whileOpen = nullptr;
    QVERIFY(!m_form->isVisible());
    QCOMPARE(Arquivos(), picker ? QStringList() : QStringList{u"a.mld"_qs});
    QCOMPARE(m_caixas->boxes.size(), picker ? 0 : 1);
}

QTEST_MAIN(tst_exportar_formulario)
#include "tst_exportar_formulario.moc"
