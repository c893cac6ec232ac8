// The keys: they reach the form before any control, and outside edit mode none goes further.

#include "viewer/frmVisualizar.h"

#include "controls/Handler.h"
#include "controls/RichTextBox.h"
#include "viewer/CodigosTecla.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace {

constexpr int Tecla_E = 'E';
constexpr int SoShift = 1;

} // namespace

void frmVisualizar::Prepara_Teclado()
{
    installEventFilter(this);
    for (QWidget* controle : findChildren<QWidget*>())
        controle->installEventFilter(this);
}

bool frmVisualizar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && watched == Caixa(Versao).viewport())
        Desenho_Pendente = false;
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* tecla = static_cast<QKeyEvent*>(event);
    const CodigosTecla::Pressao pressao = CodigosTecla::Le_Tecla(*tecla);
    const bool repetida = tecla->isAutoRepeat();
    bool vai_adiante = false;
    RunHandler([&] { vai_adiante = Form_KeyDown(pressao.codigo, pressao.shift, repetida); });
    return !vai_adiante;
}

bool frmVisualizar::Form_KeyDown(int codigo, int shift, bool repetida)
{
    struct Linha
    {
        int codigo;
        void (frmVisualizar::*acao)();
        bool redesenha;
    };
    using Form = frmVisualizar;
    // E acts with Shift alone; the number 0 belongs to no key.
    const std::array linhas = {
        Linha{107, &Form::Aumenta_Fonte, true}, // + of the number block
        Linha{187, &Form::Aumenta_Fonte, true}, // + and = of the main keyboard
        Linha{109, &Form::Diminui_Fonte, true},
        Linha{189, &Form::Diminui_Fonte, true},
        Linha{'S', &Form::Sobe_Tom, true},
        Linha{'D', &Form::Desce_Tom, true},
        Linha{'R', &Form::Reseta_Tom, true},
        Linha{'C', &Form::Mostra_Cifra, true},
        Linha{'V', &Form::Muda_Versao, true},
        Linha{'P', &Form::Proxima_Musica, true},
        Linha{'A', &Form::Musica_Anterior, true},
        Linha{shift == SoShift ? Tecla_E : 0, &Form::cmdEditar_Click, false},
        Linha{38, &Form::Rola_Acima, false},      // up
        Linha{40, &Form::Rola_Abaixo, false},     // down
        Linha{32, &Form::Rola_Fim, false},        // space
        Linha{35, &Form::Rola_Fim, false},        // end
        Linha{36, &Form::Rola_Inicio, false},     // home
        Linha{27, &Form::cmdFechar_Click, false}, // escape
        Linha{13, &Form::Alterna_Rolagem, false}, // enter
        Linha{39, &Form::Acelera_Rolagem, false}, // right
        Linha{37, &Form::Freia_Rolagem, false},   // left
    };

    if (Editando)
        return true;
    const auto linha = std::ranges::find(linhas, codigo, &Linha::codigo);
    if (linha == linhas.end())
        return false;
    // Held a little long, the Enter or Esc that opened the viewer or closed a box would act here.
    if (repetida && (codigo == 13 || codigo == 27))
        return false;
    // A key that is held down goes on when the sheet can be seen, not while repeats queue up that
    // would still be worked off after it is let go.
    if (linha->redesenha && repetida && Desenho_Pendente)
        return false;
    (this->*linha->acao)();
    return false;
}
