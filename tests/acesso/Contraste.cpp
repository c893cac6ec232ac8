#include "acesso/Contraste.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace {

double Luminancia(const QColor& cor)
{
    const auto parte = [](double valor) {
        return valor <= 0.03928 ? valor / 12.92 : std::pow((valor + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * parte(cor.redF()) + 0.7152 * parte(cor.greenF()) + 0.0722 * parte(cor.blueF());
}

QHash<QRgb, int> Cores(const QImage& imagem, const QRect& lugar)
{
    QHash<QRgb, int> cores;
    const QRect dentro = lugar.intersected(imagem.rect());
    for (int y = dentro.top(); y <= dentro.bottom(); ++y) {
        for (int x = dentro.left(); x <= dentro.right(); ++x)
            ++cores[imagem.pixel(x, y)];
    }
    return cores;
}

QColor MaisComum(const QHash<QRgb, int>& cores)
{
    QRgb melhor = qRgb(255, 255, 255);
    int quantos = 0;
    for (auto cor = cores.cbegin(); cor != cores.cend(); ++cor) {
        if (cor.value() > quantos) {
            melhor = cor.key();
            quantos = cor.value();
        }
    }
    return QColor(melhor);
}

} // namespace

double Contraste::Entre(const QColor& a, const QColor& b)
{
    const double clara = std::max(Luminancia(a), Luminancia(b));
    const double escura = std::min(Luminancia(a), Luminancia(b));
    return (clara + 0.05) / (escura + 0.05);
}

QColor Contraste::Fundo(const QImage& imagem, const QRect& lugar)
{
    return MaisComum(Cores(imagem, lugar));
}

double Contraste::Maior(const QImage& imagem, const QRect& lugar)
{
    const QHash<QRgb, int> cores = Cores(imagem, lugar);
    const QColor fundo = MaisComum(cores);
    double maior = 1.0;
    for (auto cor = cores.cbegin(); cor != cores.cend(); ++cor)
        maior = std::max(maior, Entre(QColor(cor.key()), fundo));
    return maior;
}

int Contraste::Marcados(const QImage& antes, const QImage& depois)
{
    int marcados = 0;
    for (int y = 0; y < std::min(antes.height(), depois.height()); ++y) {
        for (int x = 0; x < std::min(antes.width(), depois.width()); ++x) {
            const QRgb um = antes.pixel(x, y);
            const QRgb outro = depois.pixel(x, y);
            if (um != outro && Entre(QColor(um), QColor(outro)) >= Simbolo)
                ++marcados;
        }
    }
    return marcados;
}
