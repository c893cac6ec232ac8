// Typing into the search while it works: how long the longest-waiting key waits for its turn.

#include "Benches.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"

#include <QKeyEvent>
#include <QMutex>

#include <thread>

namespace {

constexpr int Rounds = 15;
constexpr int Keys = 40;
constexpr auto Pause = std::chrono::milliseconds(7);

using Clock = std::chrono::steady_clock;

/// Tells how long each key waited between being typed and reaching its box.
class WaitingKeys : public QObject
{
public:
    explicit WaitingKeys(QWidget& box)
        : m_box(box)
    {
        box.installEventFilter(this);
    }

    /// Types from a thread of its own, as the window system does, while the form works.
    Nanoseconds LongestWait(const QList<int>& keys)
    {
        m_arrived = 0;
        m_longest = 0;
        std::vector<QKeyEvent*> presses; // each belongs to the event queue once it is posted
        for (const int key : keys) {
            const QString text = key == Qt::Key_Backspace ? QString() : QString(QChar(key));
            presses.push_back(new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
        }
        std::thread typist(&WaitingKeys::Type, this, std::cref(presses));
        while (m_arrived < keys.size())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        typist.join();
        m_typed.clear();
        return m_longest;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const QMutexLocker lock(&m_mutex);
            const Nanoseconds waited =
                std::chrono::duration<double, std::nano>(
                    Clock::now() - m_typed[static_cast<std::size_t>(m_arrived)])
                    .count();
            m_longest = std::max(m_longest, waited);
            ++m_arrived;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void Type(const std::vector<QKeyEvent*>& presses)
    {
        for (QKeyEvent* press : presses) {
            std::this_thread::sleep_for(Pause);
            const QMutexLocker lock(&m_mutex);
            m_typed.push_back(Clock::now());
            QCoreApplication::postEvent(&m_box, press);
        }
    }

    QWidget& m_box;
    QMutex m_mutex;
    std::vector<Clock::time_point> m_typed;
    int m_arrived = 0;
    Nanoseconds m_longest = 0;
};

/// Letters and their deletion, by turns: every key changes what is searched for.
QList<int> Typed()
{
    QList<int> keys;
    while (keys.size() < Keys)
        keys << Qt::Key_L << Qt::Key_U << Qt::Key_Z << Qt::Key_Backspace << Qt::Key_Backspace
             << Qt::Key_Backspace;
    return keys;
}

} // namespace

void BenchTyping(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    const MainForm form(catalogue);
    // Every key is followed by its search at once: between slower keys only less can happen.
    form.Find<QTimer>("Timer1").setInterval(0);
    PaintCounter painted(*form.List().viewport());
    for (const char* name : {"txtTitulo", "txtReferencia", "txtLetra"}) {
        form.Write(name, QString());
        auto& box = form.Find<QLineEdit>(name);
        WaitingKeys keys(box);
        const auto type = [&] { return keys.LongestWait(Typed()); };
        const auto repaint = [&] {
            form.Write(name, QString());
            form.Tick();
            return painted.Bare(form.List());
        };
        const auto times = Interleaved(scale.Rounds(Rounds), {type, repaint});
        form.Write(name, QString());
        form.Tick();
        PaintCounter::Settle();
        if (form.List().ListCount() != scale.songs)
            qFatal("the list does not show the last search");
        table.Add(u"typing fast into %1, longest wait of a key, %2"_qs.arg(
                      scale.Songs(), QString::fromLatin1(name)),
                  times[0], u"repaint"_qs, times[1], {Aim::AtMost, 1});
    }
}
