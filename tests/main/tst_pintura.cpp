#include "PesquisaTeste.h"

#include "runtime/RuntimeError.h"

#include <QScrollBar>

namespace {

/// Writes down how many rows a list had each time that it was painted.
class Pinturas : public QObject
{
public:
    explicit Pinturas(const ListaMusicas& lista)
        : m_lista(lista)
    {
        lista.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* /*objeto*/, QEvent* evento) override
    {
        if (evento->type() == QEvent::Paint)
            linhas.append(m_lista.ListCount());
        larguras += evento->type() == QEvent::Resize ? 1 : 0;
        return false;
    }

    QList<int> linhas;
    int larguras = 0; ///< how often the room for the rows changed

private:
    const ListaMusicas& m_lista;
};

} // namespace

class tst_pintura : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void listKeepsItsLastPictureWhileSearching();
    void listIsPaintedWhileABoxStandsOpen();
    void aLongListIsPaintedOnceAndKeepsItsBar();
    void aFailedSearchLeavesAnEmptyListThatIsPainted();
    void theBarGoesWithTheRowsAndComesWithThem();
};

void tst_pintura::listKeepsItsLastPictureWhileSearching()
{
    for (const QString& titulo : {u"Aboio"_qs, u"Bossa"_qs, u"Baque"_qs})
        Musica(titulo);
    Carrega();
    QTest::qWait(50); // whatever is to be painted first
    Pinturas pinturas(*m_lista);
    m_lista->viewport()->update();
    QTRY_COMPARE(pinturas.linhas, QList<int>{3}); // paintings are seen here
    pinturas.linhas.clear();

    const QList<const QWidget*> quietos{m_lista, Acha<QWidget>("lblResultado"),
                                        Acha<QWidget>("Label3")};
    const auto lugares = [&quietos] {
        QList<QRect> retangulos;
        for (const QWidget* controle : quietos)
            retangulos.append(controle->geometry());
        return retangulos;
    };
    const QList<QRect> antes = lugares();
    QList<QRect> durante;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        if (!sql.startsWith(u"SELECT DISTINCT"))
            return;
        QTest::qWait(100); // a slow search: time enough for a painting and a new layout
        durante = lugares();
        QCOMPARE(pinturas.linhas, QList<int>());
    });
    Clica_Letra(1);
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(durante, antes);
    QTRY_VERIFY(!pinturas.linhas.isEmpty());
    QVERIFY(!pinturas.linhas.contains(0));
    QCOMPARE(pinturas.linhas.last(), 2);
    QCOMPARE(lugares(), antes);
}

/// A handler that runs while a search lets events through opens a box and leaves it standing.
void tst_pintura::listIsPaintedWhileABoxStandsOpen()
{
    for (const QString& titulo : {u"Aboio"_qs, u"Bossa"_qs, u"Baque"_qs})
        Musica(titulo);
    Carrega();
    QTest::qWait(50);
    Pinturas pinturas(*m_lista);
    QList<int> durante;
    SetDialogs(nullptr);
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        if (!sql.startsWith(u"SELECT DISTINCT"))
            return;
        QTimer::singleShot(0, m_form.get(), [&] {
            QTimer::singleShot(100, m_form.get(), [&] {
                pinturas.linhas.clear();
                m_lista->viewport()->update();
                QTest::qWait(50);
                durante = pinturas.linhas;
                QApplication::activeModalWidget()->close();
            });
            Funcoes::Mostra_Mensagem(m_form.get(), u"Pronto."_qs, Icone::Informacao);
        });
    });
    Clica_Letra(1);
    Funcoes::Conexao.SetStatementHook({});
    QVERIFY(!durante.isEmpty());
    pinturas.linhas.clear();
    m_lista->viewport()->update();
    QTRY_VERIFY(!pinturas.linhas.isEmpty());
    QCOMPARE(pinturas.linhas.last(), 2);
}

void tst_pintura::aLongListIsPaintedOnceAndKeepsItsBar()
{
    for (int i = 0; i < 200; ++i)
        Musica(u"Bossa %1"_qs.arg(i));
    Musica(u"Aboio"_qs);
    Carrega();
    QTest::qWait(50);
    QScrollBar* barra = m_lista->verticalScrollBar();
    barra->setValue(100);
    QCOMPARE(barra->value(), 100);
    QTest::qWait(50);
    Pinturas pinturas(*m_lista);
    Clica_Letra(1);
    QTRY_VERIFY(!pinturas.linhas.isEmpty());
    QTest::qWait(50);
    QCOMPARE(pinturas.linhas, QList<int>{200});
    QCOMPARE(pinturas.larguras, 0);
    QVERIFY(barra->isVisible());
    QCOMPARE(barra->value(), 0);
}

void tst_pintura::aFailedSearchLeavesAnEmptyListThatIsPainted()
{
    for (int i = 0; i < 200; ++i)
        Musica(u"Bossa %1"_qs.arg(i));
    Carrega();
    QTest::qWait(50);
    QScrollBar* barra = m_lista->verticalScrollBar();
    barra->setValue(100);
    Pinturas pinturas(*m_lista);
    Funcoes::Conexao.SetStatementHook([](const QString& sql) {
        if (sql.startsWith(u"SELECT DISTINCT"))
            throw RuntimeError(RuntimeError::StoreFailure, u"falhou"_qs, QString());
    });
    Clica_Letra(1);
    Funcoes::Conexao.SetStatementHook({});
    QTRY_VERIFY(pinturas.linhas.contains(0));
    QTRY_VERIFY(!barra->isVisible());
    QVERIFY(m_lista->updatesEnabled());
    QVERIFY(!m_lista->Segurada());
    Clica_Letra(1);
    QTRY_VERIFY(barra->isVisible());
    QCOMPARE(m_lista->ListCount(), 200);
    QCOMPARE(barra->value(), 0);
}

void tst_pintura::theBarGoesWithTheRowsAndComesWithThem()
{
    for (int i = 0; i < 200; ++i)
        Musica(u"Bossa %1"_qs.arg(i));
    Musica(u"Aboio"_qs);
    Carrega();
    QTest::qWait(50);
    for (const int letra : {0, 1, 2, 1, 0}) {
        Clica_Letra(letra);
        QTest::qWait(50);
        QCOMPARE(m_lista->ListCount(), letra == 0 ? 1 : letra == 1 ? 200 : 0);
        QCOMPARE(m_lista->verticalScrollBar()->isVisible(), letra == 1);
    }
}

QTEST_MAIN(tst_pintura)
#include "tst_pintura.moc"
