// The rows of a song list, without the list: texts, themes when they are asked for, order.

#include "LinhasMusica.h"

#include "runtime/RuntimeError.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <exception>

class tst_modelo_musicas : public QObject
{
    Q_OBJECT

private slots:
    void modelKeepsTheRulesOfModels();
    void rowShowsTextsToolTipsAndTag();
    void themesAreReadOnceAndOnlyWhenAskedFor();
    void themesOfAFailedReadStayEmpty();
    void sortIsByDisplayedTextInPortuguese_data();
    void sortIsByDisplayedTextInPortuguese();
};

void tst_modelo_musicas::modelKeepsTheRulesOfModels()
{
    ModeloMusicas modelo([](qint64 id) { return QString::number(id % 3); });
    const QAbstractItemModelTester verificador(
        &modelo, QAbstractItemModelTester::FailureReportingMode::Fatal);
    modelo.Preenche({});
    modelo.Preenche(Linhas(50));
    for (int coluna = 0; coluna < 3; ++coluna) {
        modelo.sort(coluna, Qt::DescendingOrder);
        modelo.sort(coluna, Qt::AscendingOrder);
    }
    modelo.sort(3, Qt::AscendingOrder);
    modelo.Preenche(Linhas(1));
    modelo.Preenche({});
    QCOMPARE(modelo.rowCount(), 0);
}

void tst_modelo_musicas::rowShowsTextsToolTipsAndTag()
{
    ModeloMusicas modelo([](qint64 /*id*/) { return u"Adoração, Louvor"_qs; });
    modelo.Preenche({Linha(12, u"Asa Branca"_qs, u"Luiz Gonzaga"_qs, u"Am"_qs, u"12"_qs),
                     Linha(3, QString(), QString(), QString(), QString())});
    const auto texto = [&](int linha, int coluna, int papel) {
        return modelo.index(linha, coluna).data(papel).toString();
    };
    QCOMPARE(texto(0, 0, Qt::DisplayRole), u"Asa Branca (Am)"_qs);
    QCOMPARE(texto(0, 0, Qt::ToolTipRole), u"Asa Branca [12] (Am)"_qs);
    QCOMPARE(modelo.index(0, 0).data(Qt::UserRole), QVariant(u"12"_qs));
    QCOMPARE(texto(0, 1, Qt::DisplayRole), u"Luiz Gonzaga"_qs);
    QCOMPARE(texto(0, 1, Qt::ToolTipRole), u"Luiz Gonzaga"_qs);
    QCOMPARE(texto(0, 2, Qt::DisplayRole), u"Adoração, Louvor"_qs);
    QCOMPARE(texto(0, 2, Qt::ToolTipRole), u"Adoração, Louvor"_qs);
    QCOMPARE(texto(1, 0, Qt::DisplayRole), u" ()"_qs);
    QCOMPARE(texto(1, 0, Qt::ToolTipRole), u" [] ()"_qs);
}

void tst_modelo_musicas::themesAreReadOnceAndOnlyWhenAskedFor()
{
    QList<qint64> lidos;
    ModeloMusicas modelo([&](qint64 id) {
        lidos.append(id);
        return u"Louvor"_qs;
    });
    modelo.Preenche(Linhas(10));
    modelo.index(4, 0).data();
    modelo.index(4, 1).data(Qt::ToolTipRole);
    QVERIFY(lidos.isEmpty());
    modelo.index(4, 2).data();
    modelo.index(4, 2).data(Qt::ToolTipRole);
    modelo.index(7, 2).data();
    QCOMPARE(lidos, QList<qint64>({5, 8}));
    modelo.Preenche(Linhas(10)); // may have changed in the meantime
    modelo.index(4, 2).data();
    QCOMPARE(lidos, QList<qint64>({5, 8, 5}));
}

void tst_modelo_musicas::themesOfAFailedReadStayEmpty()
{
    ModeloMusicas modelo([](qint64 id) -> QString {
        if (id % 2 == 0)
            throw RuntimeError(RuntimeError::StoreFailure, u"x"_qs, u"y"_qs);
        return u"Louvor"_qs;
    });
    QSignalSpy falhas(&modelo, &ModeloMusicas::FalhaNaLinha);
    modelo.Preenche(Linhas(4));
    QCOMPARE(Coluna(modelo, 2), QStringList({u"Louvor"_qs, QString(), u"Louvor"_qs, QString()}));
    QCOMPARE(falhas.size(), 1);
    QVERIFY_THROWS_EXCEPTION(RuntimeError,
                             std::rethrow_exception(falhas[0][0].value<std::exception_ptr>()));
}

void tst_modelo_musicas::sortIsByDisplayedTextInPortuguese_data()
{
    QTest::addColumn<int>("coluna");
    QTest::addColumn<QStringList>("crescente");
    QTest::newRow("titles, accents beside their letter")
        << 0
        << QStringList({u"abaco (C)"_qs, u"Ábaco (G)"_qs, u"abade (C)"_qs, u"e (C)"_qs, u"É (C)"_qs,
                        u"fé (C)"_qs});
    QTest::newRow("references") << 1
                                << QStringList({u"ação"_qs, u"Ácaro"_qs, u"bis"_qs, u"çá"_qs,
                                                u"Cartola"_qs, u"Zé"_qs});
    QTest::newRow("themes") << 2
                            << QStringList({u"Adoração"_qs, u"Água"_qs, u"bossa"_qs, u"Louvor"_qs,
                                            u"louvor, Paz"_qs, u"paz"_qs});
}

void tst_modelo_musicas::sortIsByDisplayedTextInPortuguese()
{
    QFETCH(int, coluna);
    QFETCH(QStringList, crescente);
    static const QStringList temas{u"paz"_qs,    u"Adoração"_qs, u"louvor, Paz"_qs,
                                   u"Louvor"_qs, u"bossa"_qs,    u"Água"_qs};
    ModeloMusicas modelo([](qint64 id) { return temas[id - 1]; });
    modelo.Preenche({Linha(1, u"fé"_qs, u"bis"_qs), Linha(2, u"É"_qs, u"Zé"_qs),
                     Linha(3, u"e"_qs, u"çá"_qs), Linha(4, u"abade"_qs, u"ação"_qs),
                     Linha(5, u"Ábaco"_qs, u"Cartola"_qs, u"G"_qs),
                     Linha(6, u"abaco"_qs, u"Ácaro"_qs)});
    modelo.sort(coluna, Qt::AscendingOrder);
    QCOMPARE(Coluna(modelo, coluna), crescente);
    modelo.sort(coluna, Qt::DescendingOrder);
    std::reverse(crescente.begin(), crescente.end());
    QCOMPARE(Coluna(modelo, coluna), crescente);
}

QTEST_MAIN(tst_modelo_musicas)
#include "tst_modelo_musicas.moc"
