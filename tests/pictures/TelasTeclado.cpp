#include "pictures/TelasTeclado.h"

namespace Telas {

void ShowKeyboard(Pictures& pictures, const QWidget& form)
{
    const auto click = [&form](const QString& name) {
        QTest::mouseClick(form.findChild<QWidget*>(name), Qt::LeftButton);
        WaitForSearch(form);
    };
    for (int i = 0; i < 3; ++i) {
        click(QStringLiteral("imgTeclado_%1").arg(i));
        pictures.Save(QStringLiteral("teclado-%1").arg(i));
    }
    // ~ and A on the keyboard: the accent joined, the key touched last highlighted.
    click(QStringLiteral("lblTecla_126"));
    click(QStringLiteral("lblTecla_65"));
    pictures.Save(QStringLiteral("teclado-acento"));
    click(QStringLiteral("imgFecharTeclado"));
}

} // namespace Telas
