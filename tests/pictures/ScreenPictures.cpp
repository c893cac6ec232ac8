#include "pictures/ScreenPictures.h"

#include "store/Connection.h"
#include "support/TestCatalogue.h"
#include "viewer/frmVisualizar.h"

#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QTextStream>

namespace Telas {

namespace {

constexpr int PollMs = 20;

} // namespace

void Pictures::Save(const QString& name)
{
    QTest::qWait(PaintMs);
    const QScreen* screen = QApplication::primaryScreen();
    const QSize size = (QSizeF(screen->size()) * screen->devicePixelRatio()).toSize();
    const QString file = QStringLiteral("%1/%2-%3x%4%5.png")
                             .arg(m_folder, name)
                             .arg(size.width())
                             .arg(size.height())
                             .arg(m_kind);
    const bool saved = QApplication::primaryScreen()->grabWindow(0).save(file);
    QTextStream(stdout) << (saved ? "  " : "  NOT SAVED ") << file << Qt::endl;
}

void Principal::Conecta_Banco()
{
    Funcoes::Conexao.Open(TestCatalogue::ConnectionString(m_catalogue));
    Funcoes::Conexao.CursorLocation = ::Connection::UseClient;
}

void BringToFront(QWidget& form)
{
    form.activateWindow();
    if (!QTest::qWaitForWindowActive(&form))
        qFatal("another window has the keyboard");
}

void WaitForSearch(const QWidget& form)
{
    constexpr int Patience = 60000;
    const auto* clock = form.findChild<QTimer*>(QStringLiteral("Timer1"));
    const auto* result = form.findChild<QLabel*>(QStringLiteral("lblResultado"));
    const auto over = [&] {
        return !clock->isActive() && result->text() != QStringLiteral("Aguarde...");
    };
    if (!QTest::qWaitFor(over, Patience))
        qFatal("the search does not end");
}

void Type(QWidget& form, const QString& text)
{
    auto* box = form.findChild<QLineEdit*>(QStringLiteral("txtTitulo"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
    WaitForSearch(form);
}

void Click(QWidget& form, const QString& name)
{
    QTest::mouseClick(form.findChild<QWidget*>(name), Qt::LeftButton);
}

void DoubleClick(QWidget& form, const char* view, int row)
{
    auto* rows = form.findChild<QAbstractItemView*>(QString::fromLatin1(view));
    const QPoint place = rows->visualRect(rows->model()->index(row, 0)).center();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, place);
}

frmVisualizar* Open(qint64 song)
{
    auto* viewer = new frmVisualizar; // deletes itself when closed
    viewer->ID_Musica = static_cast<double>(song);
    viewer->Show();
    return viewer;
}

void WhenBoxIsOpen(QObject& context, const std::function<void(QDialog&)>& act)
{
    QTimer::singleShot(PollMs, &context, [&context, act] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            act(*box);
        else
            WhenBoxIsOpen(context, act);
    });
}

void SaveAndClose(Pictures& pictures, const QString& name, QDialog& box)
{
    pictures.Save(name);
    QTest::keyClick(&box, Qt::Key_Escape);
}

void SaveBox(Pictures& pictures, const QString& name, const std::function<void()>& open)
{
    WhenBoxIsOpen(pictures, [&pictures, name](QDialog& box) { SaveAndClose(pictures, name, box); });
    open();
}

void SaveAnswer(Pictures& pictures, const QString& name, const QString& typed,
                const std::function<void()>& open)
{
    WhenBoxIsOpen(pictures, [&pictures, name, typed](QDialog& input) {
        auto* edit = input.findChild<QLineEdit*>();
        edit->setText(typed); // key clicks know ASCII alone
        QTest::keyClick(edit, Qt::Key_Return);
        WhenBoxIsOpen(pictures,
                      [&pictures, name](QDialog& box) { SaveAndClose(pictures, name, box); });
    });
    open();
}

} // namespace Telas
