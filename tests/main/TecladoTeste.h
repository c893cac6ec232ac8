#pragma once

#include "PesquisaTeste.h"

#include "controls/Appearance.h"
#include "main/TecladoVirtual.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QWindow>

#include <array>

/// What tests of the on-screen keyboard share: opening it, touching its keys, and their colours as
/// they are on the screen.
class TecladoTeste : public PesquisaTeste
{
    Q_OBJECT

protected:
    /// The boxes that the keyboard types into, in the order of their icons.
    static constexpr std::array Caixas{"txtTitulo", "txtReferencia", "txtLetra"};

    void Abre(int caixa)
    {
        QTest::mouseClick(Acha<QWidget>(qPrintable(u"imgTeclado_%1"_qs.arg(caixa))),
                          Qt::LeftButton);
    }
    QWidget* Tecla(int indice) const
    {
        return Acha<QWidget>(qPrintable(u"lblTecla_%1"_qs.arg(indice)));
    }
    /// Moves the mouse there.
    void Passa(const QWidget* controle) const
    {
        QWindow* janela = m_form->windowHandle();
        QTest::mouseMove(janela, controle->mapTo(m_form.get(), controle->rect().center()));
        QCoreApplication::processEvents();
    }
    void Toca(int indice) const { QTest::mouseClick(Tecla(indice), Qt::LeftButton); }
    /// Types keys by their codes and waits until they have arrived.
    void Digita(const QList<int>& indices) const
    {
        for (const int indice : indices)
            Toca(indice);
        QCoreApplication::processEvents();
    }
    QWidget* Teclado() const { return Acha<QWidget>("pctTeclado"); }
    TextBox* Caixa(int i) const { return Acha<TextBox>(Caixas.at(static_cast<std::size_t>(i))); }
    QString Texto(int i) const { return Caixa(i)->text(); }

    /// The colours of a key as they are on the screen: its ground, and its text where the ground is
    /// not.
    QColor Fundo(int indice) const { return Retrato(indice).pixelColor(3, 3); }
    /// @return whether there are strokes of a colour, as far as thin ones reach it
    bool Escreve_Em(int indice, const QColor& cor) const
    {
        const QImage retrato = Retrato(indice);
        const auto perto = [&cor](const QColor& ponto) {
            return qAbs(ponto.red() - cor.red()) < 70 && qAbs(ponto.green() - cor.green()) < 70 &&
                   qAbs(ponto.blue() - cor.blue()) < 70;
        };
        constexpr int Canto = 3; // rounded, the keyboard's own ground shows there
        for (int y = Canto; y < retrato.height() - Canto; ++y) {
            for (int x = Canto; x < retrato.width() - Canto; ++x) {
                if (perto(retrato.pixelColor(x, y)))
                    return true;
            }
        }
        return false;
    }
    QImage Retrato(int indice) const
    {
        return Tecla(indice)->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QList<int> Realcadas() const
    {
        QList<int> realcadas;
        for (int i = 1; i <= 256; ++i) {
            const auto* tecla = m_form->findChild<QWidget*>(u"lblTecla_%1"_qs.arg(i));
            if (tecla && Fundo(i) == QColor(0x80, 0x80, 0x80))
                realcadas.append(i);
        }
        return realcadas;
    }

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
};
