#include "mld/ExchangeText.h"
#include "mld/Museu.h"

#include <QFile>
#include <QSet>
#include <QTest>

class tst_museu : public QObject
{
    Q_OBJECT

private slots:
    void everyPieceGivesWhatItHolds_data();
    void everyPieceGivesWhatItHolds();
    void everyPieceIsInTheTable();
    void pieceByPieceNothingChanges();
};

void tst_museu::everyPieceGivesWhatItHolds_data()
{
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("conteudo");
    for (const Museu::Peca& peca : Museu::Pecas())
        QTest::newRow(qPrintable(peca.nome)) << peca.nome << peca.conteudo;
}

void tst_museu::everyPieceGivesWhatItHolds()
{
    QFETCH(QString, nome);
    QFETCH(QString, conteudo);
    QFile file(Museu::Pasta().filePath(nome + u".mld"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(ToText(ExchangeReader::Read(file)), conteudo);
}

void tst_museu::everyPieceIsInTheTable()
{
    QSet<QString> names;
    for (const Museu::Peca& peca : Museu::Pecas())
        names.insert(peca.nome + u".mld");
    const QStringList files = Museu::Pasta().entryList(QDir::Files);
    QVERIFY(files.size() >= 150);
    QCOMPARE(QSet<QString>(files.begin(), files.end()), names);
}

namespace {

/// Gives its bytes one by one, as a slow pipe does.
class Trickle : public QIODevice
{
public:
    explicit Trickle(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* to, qint64 size) override
    {
        if (size == 0 || m_at == m_bytes.size())
            return 0;
        *to = m_bytes.at(m_at++);
        return 1;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qsizetype m_at = 0;
};

} // namespace

void tst_museu::pieceByPieceNothingChanges()
{
    for (const Museu::Peca& peca : Museu::Pecas()) {
        QFile file(Museu::Pasta().filePath(peca.nome + u".mld"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        Trickle slow(file.readAll());
        QVERIFY2(ToText(ExchangeReader::Read(slow)) == peca.conteudo, qPrintable(peca.nome));
    }
}

QTEST_GUILESS_MAIN(tst_museu)
#include "tst_museu.moc"
