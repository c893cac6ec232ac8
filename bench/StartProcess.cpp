// The process whose start is measured: the program itself, or an empty window of the same kind. It
// writes a line when something is painted: what reads them holds the clock.

#include "app/Main.h"
#include "controls/ListaMusicas.h"
#include "harness/Memory.h"
#include "harness/Rounds.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTextStream>
#include <QTimer>
#include <QTimerEvent>

namespace {

void Say(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl;
}

/// Tells that something was painted, and what processor time it took the process to get there.
void SayPainted(const QString& what)
{
    Say(what);
    constexpr double Nano = 1e9 / CLOCKS_PER_SEC;
    Say(u"%1-processor %2"_qs.arg(what).arg(static_cast<double>(std::clock()) * Nano, 0, 'f', 0));
}

/// Follows the start by its paintings and spares it the waits that are there for the user's eyes:
/// the list's first tick comes once the splash is painted, and a key dismisses the splash then.
class Follower : public QObject
{
protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::Paint || !widget || m_inside)
            return false;
        if (widget->window()->objectName() == u"frmSplash" && widget->isWindow() && !m_splash)
            AfterPainting([widget] { SplashPainted(*widget); }, m_splash);
        else if (auto* list = qobject_cast<ListaMusicas*>(widget->parentWidget());
                 list && widget == list->viewport() && list->ListCount() > 0 && !m_list)
            AfterPainting([this, list] { ListPainted(*list); }, m_list);
        return false;
    }

private:
    template <typename Action>
    void AfterPainting(Action action, bool& done)
    {
        done = true;
        QTimer::singleShot(0, this, action);
    }

    static void SplashPainted(QWidget& splash)
    {
        SayPainted(u"splash"_qs);
        for (QWidget* form : QApplication::topLevelWidgets()) {
            auto* clock = form->findChild<QTimer*>(u"Timer1"_qs);
            if (form->objectName() != u"frmPrincipal" || !clock)
                continue;
            QTimerEvent tick(clock->timerId());
            QCoreApplication::sendEvent(clock, &tick);
        }
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
        QCoreApplication::sendEvent(&splash, &key);
    }

    void ListPainted(ListaMusicas& list)
    {
        SayPainted(u"list"_qs);
        Say(u"memory %1"_qs.arg(Memory::Peak()));
        Say(u"songs %1"_qs.arg(list.ListCount()));
        m_inside = true;
        std::vector<Nanoseconds> repaints;
        constexpr std::size_t Repaints = 9;
        repaints.reserve(Repaints);
        for (std::size_t i = 0; i < Repaints; ++i)
            repaints.push_back(Timed([&] { list.repaint(); }));
        Say(u"repaint %1"_qs.arg(Median(repaints)));
        list.window()->close();
    }

    bool m_splash = false;
    bool m_list = false;
    bool m_inside = false;
};

class EmptyWindow : public QWidget
{
protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QTimer::singleShot(0, this, [this] {
            SayPainted(u"window"_qs);
            Say(u"memory %1"_qs.arg(Memory::Peak()));
            close();
        });
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (qEnvironmentVariable("MELODARIO_BENCH_START") == u"empty") {
        EmptyWindow window;
        window.resize(1024, 740);
        window.show();
        return QApplication::exec();
    }
    Follower follower;
    application.installEventFilter(&follower);
    return Funcoes::Main(application);
}
