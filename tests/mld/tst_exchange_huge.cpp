#include "mld/ExchangeReader.h"

#include <QFile>
#include <QIODevice>
#include <QTest>

#include <algorithm>
#include <cstring>

namespace {

constexpr qint64 Gigabyte = qint64{1024} * 1024 * 1024;
constexpr qint64 Megabyte = qint64{1024} * 1024;

/// A file that no disk has to hold: a beginning, so and so many times a letter, an end.
class Generated final : public QIODevice
{
public:
    Generated(QByteArray head, qint64 letters, QByteArray tail)
        : m_head(std::move(head))
        , m_letters(letters)
        , m_tail(std::move(tail))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

    /// @return bytes that were asked for
    qint64 Given() const { return m_at; }

protected:
    qint64 readData(char* to, qint64 most) override
    {
        qint64 size = 0;
        while (size < most) {
            const qint64 part = Part(to + size, most - size);
            if (part == 0)
                break;
            size += part;
            m_at += part;
        }
        return size;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    qint64 Part(char* to, qint64 most) const
    {
        const qint64 lettersEnd = m_head.size() + m_letters;
        if (m_at < m_head.size())
            return Copied(m_head, m_at, to, most);
        if (m_at >= lettersEnd)
            return Copied(m_tail, m_at - lettersEnd, to, most);
        const qint64 size = std::min(most, lettersEnd - m_at);
        std::memset(to, 'a', static_cast<std::size_t>(size));
        return size;
    }

    static qint64 Copied(const QByteArray& from, qint64 at, char* to, qint64 most)
    {
        const qint64 size = std::min<qint64>(most, from.size() - at);
        std::memcpy(to, from.constData() + at, static_cast<std::size_t>(size));
        return size;
    }

    QByteArray m_head;
    qint64 m_letters;
    QByteArray m_tail;
    qint64 m_at = 0;
};

/// @return the most memory that this process ever held, in bytes
qint64 MemoryPeak()
{
    QFile status(u"/proc/self/status"_qs);
    if (!status.open(QIODevice::ReadOnly))
        qFatal("nobody knows how much memory is held");
    const QByteArray text = status.readAll();
    const qsizetype from = text.indexOf("VmHWM:") + 6;
    return text.mid(from, text.indexOf("kB", from) - from).trimmed().toLongLong() * 1024;
}

QByteArray Song(const QByteArray& title)
{
    return "<musica><titulo>" + title +
           "</titulo><referencia/><letra1/><letra2/><tom/><variacao/><categoria>1</categoria>"
           "<temas/></musica>";
}

} // namespace

/// Files with more in one place than any song has. None of them takes the memory that it asks for.
class tst_exchange_huge : public QObject
{
    Q_OBJECT

private slots:
    void aGigabyteOfText_data();
    void aGigabyteOfText();
    void aGigabyteElsewhereIsRefusedAtOnce_data();
    void aGigabyteElsewhereIsRefusedAtOnce();
};

void tst_exchange_huge::aGigabyteOfText_data()
{
    QTest::addColumn<QByteArray>("declaration");
    QTest::newRow("UTF-8") << QByteArray();
    QTest::newRow("the code page") << QByteArray(R"(<?xml version="1.0" encoding="iso-8859-1" ?>)");
}

void tst_exchange_huge::aGigabyteOfText()
{
    QFETCH(QByteArray, declaration);
    const QByteArray lyrics("<letra1>");
    QByteArray huge = Song("Longa");
    const qsizetype at = huge.indexOf("<letra1/>");
    Generated file(declaration + "<musicas>" + Song("Luz") + huge.first(at) + lyrics, Gigabyte,
                   "</letra1>" + huge.mid(at + lyrics.size() + 1) + Song("Mar") + "</musicas>");
    const qint64 before = MemoryPeak();
    const auto songs = ExchangeReader::Read(file);
    const qint64 taken = MemoryPeak() - before;
    QVERIFY(songs);
    QCOMPARE(songs->Count(), 2);
    QCOMPARE(songs->At(1).titulo.value(), u"Mar"_qs);
    QCOMPARE(songs->DefectCount(), 1);
    QCOMPARE(songs->Defects().first().number, 2);
    QCOMPARE(songs->Defects().first().kind, ExchangeDefect::Kind::TooLong);
    QVERIFY2(taken < 700 * Megabyte, qPrintable(QString::number(taken / Megabyte)));
}

void tst_exchange_huge::aGigabyteElsewhereIsRefusedAtOnce_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("tail");
    QTest::newRow("a marked section") << QByteArray("<m><s><letra1><![CDATA[") << QByteArray("]]>");
    QTest::newRow("a comment") << QByteArray("<m><!--") << QByteArray("-->");
    QTest::newRow("an attribute") << QByteArray("<m a='") << QByteArray("'/>");
    QTest::newRow("a name") << QByteArray("<m") << QByteArray("/>");
    QTest::newRow("an instruction") << QByteArray("<?p ") << QByteArray("?><m/>");
    QTest::newRow("an entity") << QByteArray("<!DOCTYPE m [<!ENTITY e '") << QByteArray("'>]><m/>");
    QTest::newRow("no markup") << QByteArray() << QByteArray();
}

void tst_exchange_huge::aGigabyteElsewhereIsRefusedAtOnce()
{
    QFETCH(QByteArray, head);
    QFETCH(QByteArray, tail);
    Generated file(head, Gigabyte, tail);
    const qint64 before = MemoryPeak();
    QVERIFY(!ExchangeReader::Read(file));
    QVERIFY2(file.Given() < 32 * Megabyte, qPrintable(QString::number(file.Given())));
    const qint64 taken = MemoryPeak() - before;
    QVERIFY2(taken < 200 * Megabyte, qPrintable(QString::number(taken / Megabyte)));
}

QTEST_GUILESS_MAIN(tst_exchange_huge)
#include "tst_exchange_huge.moc"
