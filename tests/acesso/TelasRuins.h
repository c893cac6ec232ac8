#pragma once

#include "controls/ImageButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QWidget>

/// Windows that each break one rule, to see that the rule finds it.
namespace TelasRuins {

/// A picture button that says nothing.
inline void SemNome(QWidget& janela)
{
    auto* botao = new ImageButton(&janela);
    botao->setGeometry(20, 20, 30, 30);
}

/// A widget that takes keys and is announced as a frame.
inline void SemPapel(QWidget& janela)
{
    auto* faixa = new QWidget(&janela);
    faixa->setAccessibleName(u"Faixa"_qs);
    faixa->setFocusPolicy(Qt::TabFocus);
    faixa->setGeometry(20, 20, 100, 30);
}

inline void RotuloSemCampo(QWidget& janela)
{
    auto* rotulo = new QLabel(u"Título:"_qs, &janela);
    rotulo->setGeometry(20, 20, 60, 30);
    auto* campo = new QLineEdit(&janela);
    campo->setAccessibleName(u"Título"_qs);
    campo->setGeometry(90, 20, 100, 30);
}

inline void CampoSemRotulo(QWidget& janela)
{
    auto* combo = new QComboBox(&janela);
    combo->addItem(u"Louvor"_qs);
    combo->setAccessibleName(u"Tema"_qs); // which the item's text hides
    combo->setGeometry(20, 20, 100, 30);
}

/// The lower button comes first.
inline void OrdemErrada(QWidget& janela)
{
    auto* embaixo = new QPushButton(u"Fechar"_qs, &janela);
    embaixo->setGeometry(20, 80, 100, 30);
    auto* emcima = new QPushButton(u"Abrir"_qs, &janela);
    emcima->setGeometry(20, 20, 100, 30);
}

inline void TextoApagado(QWidget& janela)
{
    auto* rotulo = new QLabel(u"Quase nada"_qs, &janela);
    rotulo->setStyleSheet(u"color: #909090"_qs);
    rotulo->setGeometry(20, 20, 160, 30);
}

/// A sheet that took the colours of a dark desktop.
inline void FolhaEscura(QWidget& janela)
{
    auto* folha = new QTextEdit(u"C  G7"_qs, &janela);
    folha->setAccessibleName(u"Letra"_qs);
    folha->setStyleSheet(u"background: black; color: white"_qs);
    folha->setGeometry(20, 20, 200, 100);
}

/// Paper that took the text of a dark desktop.
inline void FolhaPalida(QWidget& janela)
{
    auto* folha = new QTextEdit(u"C  G7"_qs, &janela);
    folha->setAccessibleName(u"Letra"_qs);
    folha->setStyleSheet(u"background: white; color: #d3dae2; border: none"_qs);
    folha->setGeometry(20, 20, 200, 100);
}

/// A box whose ring is taken away and whose new border nobody sees.
inline void FocoInvisivel(QWidget& janela)
{
    auto* caixa = new QCheckBox(u"Religiosa"_qs, &janela);
    caixa->setStyleSheet(u"QCheckBox { border: 1px solid #fff; padding: 1px; }"
                         "QCheckBox:focus { border: 1px solid #eee; outline: none; }"_qs);
    caixa->setGeometry(20, 20, 160, 30);
}

} // namespace TelasRuins
