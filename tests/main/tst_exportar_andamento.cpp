#include "ExportarTeste.h"

#include <QThread>

namespace {

constexpr int Muitas = 400;
constexpr int EntrePausas = 20;       ///< songs
constexpr unsigned long PausaMs = 60; ///< longer than the form lets pass between two pictures

/// Notes at what value a bar is painted.
class Pinturas final : public QObject
{
public:
    explicit Pinturas(QProgressBar& barra)
        : m_barra(&barra)
    {
        barra.installEventFilter(this);
    }

    QList<int> valores;

protected:
    bool eventFilter(QObject*, QEvent* evento) override
    {
        if (evento->type() == QEvent::Paint &&
            (valores.isEmpty() || valores.last() != m_barra->value()))
            valores.append(m_barra->value());
        return false;
    }

private:
    QProgressBar* m_barra;
};

} // namespace

/// An export that takes its time: what is seen of it, and what cannot disturb it.
class tst_exportar_andamento : public ExportarTeste
{
    Q_OBJECT

private slots:
    void the_bar_moves_and_the_window_lives();
    void it_cannot_be_closed_while_it_writes_data();
    void it_cannot_be_closed_while_it_writes();
    void nothing_can_be_pressed_while_it_writes();
    void the_main_form_closed_meanwhile_leaves_no_file();
    void no_song_means_no_bar();

private:
    void Carrega_Muitas(int quantas)
    {
        QString sql = u"BEGIN;"_qs;
        for (int i = 1; i <= quantas; ++i)
            sql += u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, "
                   "CATEGORIA) VALUES ('Canto %1', 'Ana', 'C  G7', 'D  A7', 'C', '', 1);"
                   "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (%1, 1);"_qs.arg(i);
        m_catalogo->Run(sql + u"COMMIT"_qs);
        Carrega_Exportar();
        m_lista->selectAll();
        m_escolhas->chosen = {Caminho(u"muitas.mld"_qs)};
    }

    /// Does something as often as events run while the songs are written.
    static QTimer* Enquanto_Escreve(QDialog& form, const std::function<void()>& age)
    {
        auto* relogio = new QTimer(&form);
        QObject::connect(relogio, &QTimer::timeout, &form, [&form, age] {
            if (No<QProgressBar>(form, "ProgressBar")->isVisible())
                age();
        });
        relogio->start(0);
        return relogio;
    }

    /// Makes the catalogue slow, so that what is seen does not hang on the computer's speed.
    void Demora()
    {
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) {
            if (sql.contains(u"FROM TEMA INNER JOIN TEMA_MUSICA"_qs) &&
                ++m_musicas % EntrePausas == 0)
                QThread::msleep(PausaMs);
        });
    }

    /// @return how many songs the file holds; -1 when it is not whole
    int Musicas_No_Arquivo() const
    {
        const QByteArray conteudo = Conteudo(u"muitas.mld"_qs);
        return conteudo.endsWith("</musicas>") ? static_cast<int>(conteudo.count("<musica>")) : -1;
    }

    int m_musicas = 0;
};

void tst_exportar_andamento::the_bar_moves_and_the_window_lives()
{
    Carrega_Muitas(Muitas);
    Demora();
    int turnos = 0;
    bool arquivoCedo = false;
    QList<int> pintados;
    QVERIFY(No_Formulario([&](QDialog& form) {
        QCOMPARE(No<QLabel>(form, "lblTitulo")->text(),
                 u"A(s) 400 música(s) abaixo serão exportadas."_qs);
        auto* barra = No<QProgressBar>(form, "ProgressBar");
        Pinturas pinturas(*barra);
        Enquanto_Escreve(form, [&] {
            ++turnos;
            arquivoCedo = arquivoCedo || !Arquivos().isEmpty();
        });
        Aperta(form, "cmdExportar");
        pintados = pinturas.valores;
        QCOMPARE(barra->minimum(), 0);
        QCOMPARE(barra->maximum(), Muitas);
        QCOMPARE(barra->value(), Muitas);
        QVERIFY(!barra->isVisible());
    }));
    // Beginning, end, and each pause between them.
    QVERIFY2(pintados.size() >= Muitas / EntrePausas, qPrintable(QString::number(pintados.size())));
    QVERIFY(std::is_sorted(pintados.begin(), pintados.end()));
    QVERIFY(pintados.first() < Muitas / 4);
    QVERIFY2(turnos >= Muitas / EntrePausas - 1, qPrintable(QString::number(turnos)));
    QVERIFY(!arquivoCedo);
    QCOMPARE(Musicas_No_Arquivo(), Muitas);
    QCOMPARE(m_caixas->boxes.size(), 1);
}

void tst_exportar_andamento::it_cannot_be_closed_while_it_writes_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("title bar") << 0;
    QTest::newRow("Esc") << 1;
    QTest::newRow("access key") << 2;
}

void tst_exportar_andamento::it_cannot_be_closed_while_it_writes()
{
    QFETCH(int, way);
    Carrega_Muitas(300);
    int tentativas = 0;
    QVERIFY(No_Formulario([&](QDialog& form) {
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Enquanto_Escreve(form, [&] {
            ++tentativas;
            if (way == 0)
                form.close();
            else if (way == 1)
                QTest::keyClick(&form, Qt::Key_Escape);
            else
                QTest::keyClick(&form, Qt::Key_F, Qt::AltModifier);
            QVERIFY(form.isVisible());
        });
        Aperta(form, "cmdExportar");
    }));
    QVERIFY(tentativas > 0);
    QCOMPARE(Musicas_No_Arquivo(), 300);
}

void tst_exportar_andamento::nothing_can_be_pressed_while_it_writes()
{
    Carrega_Muitas(300);
    int tentativas = 0;
    QVERIFY(No_Formulario([&](QDialog& form) {
        Enquanto_Escreve(form, [&] {
            ++tentativas;
            for (const char* controle : {"cmdExportar", "cmdCancelar", "chkArquivo"}) {
                QVERIFY2(!No<QWidget>(form, controle)->isEnabled(), controle);
                QTest::mouseClick(No<QWidget>(form, controle), Qt::LeftButton);
            }
            QTest::keyClick(&form, Qt::Key_Return);
        });
        Aperta(form, "cmdExportar");
    }));
    QVERIFY(tentativas > 0);
    QCOMPARE(m_escolhas->requests.size(), 1);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(Musicas_No_Arquivo(), 300);
}

void tst_exportar_andamento::the_main_form_closed_meanwhile_leaves_no_file()
{
    Carrega_Muitas(300);
    bool fechada = false;
    QVERIFY(No_Formulario([&](QDialog& form) {
        Enquanto_Escreve(form, [&] {
            if (!std::exchange(fechada, true))
                m_form->close();
        });
        Aperta(form, "cmdExportar");
    }));
    QVERIFY(fechada);
    QVERIFY(!m_form->isVisible());
    QCOMPARE(Arquivos(), QStringList());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_exportar_andamento::no_song_means_no_bar()
{
    Carrega_Muitas(1);
    m_escolhas->whileOpen = [this] { m_catalogo->Run(u"DELETE FROM MUSICA"_qs); };
    int turnos = 0;
    QVERIFY(No_Formulario([&](QDialog& form) {
        Enquanto_Escreve(form, [&] { ++turnos; });
        Aperta(form, "cmdExportar");
    }));
    QCOMPARE(turnos, 0);
    QCOMPARE(Musicas_No_Arquivo(), 0);
}

QTEST_MAIN(tst_exportar_andamento)
#include "tst_exportar_andamento.moc"
