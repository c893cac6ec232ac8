#include "viewer/CodigosTecla.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

#ifdef Q_OS_WIN
constexpr bool E_Windows = true;
#else
constexpr bool E_Windows = false;
#endif

struct Par
{
    int tecla;
    int codigo;
};

constexpr std::array Principais = {
    Par{Qt::Key_Backspace, 8},    Par{Qt::Key_Tab, 9},          Par{Qt::Key_Backtab, 9},
    Par{Qt::Key_Clear, 12},       Par{Qt::Key_Return, 13},      Par{Qt::Key_Enter, 13},
    Par{Qt::Key_Shift, 16},       Par{Qt::Key_Control, 17},     Par{Qt::Key_Alt, 18},
    Par{Qt::Key_AltGr, 18},       Par{Qt::Key_Pause, 19},       Par{Qt::Key_CapsLock, 20},
    Par{Qt::Key_Escape, 27},      Par{Qt::Key_Space, 32},       Par{Qt::Key_PageUp, 33},
    Par{Qt::Key_PageDown, 34},    Par{Qt::Key_End, 35},         Par{Qt::Key_Home, 36},
    Par{Qt::Key_Left, 37},        Par{Qt::Key_Up, 38},          Par{Qt::Key_Right, 39},
    Par{Qt::Key_Down, 40},        Par{Qt::Key_Select, 41},      Par{Qt::Key_Execute, 43},
    Par{Qt::Key_Print, 44},       Par{Qt::Key_Insert, 45},      Par{Qt::Key_Delete, 46},
    Par{Qt::Key_Help, 47},        Par{Qt::Key_Super_L, 91},     Par{Qt::Key_Meta, 91},
    Par{Qt::Key_Super_R, 92},     Par{Qt::Key_Menu, 93},        Par{Qt::Key_Sleep, 95},
    Par{Qt::Key_NumLock, 144},    Par{Qt::Key_ScrollLock, 145}, Par{Qt::Key_Equal, 187},
    Par{Qt::Key_Plus, 187},       Par{Qt::Key_Comma, 188},      Par{Qt::Key_Minus, 189},
    Par{Qt::Key_Underscore, 189}, Par{Qt::Key_Period, 190},
};

constexpr std::array Bloco = {
    Par{Qt::Key_Asterisk, 106}, Par{Qt::Key_Plus, 107},   Par{Qt::Key_Comma, 110},
    Par{Qt::Key_Minus, 109},    Par{Qt::Key_Period, 110}, Par{Qt::Key_Slash, 111},
};

// Places as the keyboards of this platform number them: three rows of letters.
struct Fileira
{
    quint32 primeira;
    std::string_view letras;
};

constexpr std::array Fileiras = {
    Fileira{24, "QWERTYUIOP"},
    Fileira{38, "ASDFGHJKL"},
    Fileira{52, "ZXCVBNM"},
};

// Signs that share a key with + or -: of the Portuguese keyboard, and with AltGr of the Brazilian.
struct Sinal
{
    int tecla;
    quint32 lugar;
    int codigo;
};

constexpr std::array Sinais = {
    Sinal{Qt::Key_Asterisk, 34, 187},
    Sinal{Qt::Key_section, 21, 187},
    Sinal{Qt::Key_onehalf, 20, 189},
};

// Signs that AltGr, with Shift or without, gives on the keys of letters: of the Brazilian, the
// Portuguese, the Polish and the international keyboard. Letters are capitals, as keys are named.
struct Terceiros
{
    char letra;
    std::u32string_view sinais;
};

constexpr std::array TerceirosSinais = {
    Terceiros{'A', U"ÆÁĄ"}, Terceiros{'B', U"”’"},    Terceiros{'C', U"₢¢©Ć"},
    Terceiros{'D', U"Ð"},   Terceiros{'E', U"€°¢ÉĘ"}, Terceiros{'F', U"Đª"},
    Terceiros{'G', U"Ŋ"},   Terceiros{'H', U"Ħ"},     Terceiros{'I', U"→Í"},
    Terceiros{'K', U"ĸ&"},  Terceiros{'L', U"ŁØ"},    Terceiros{'M', U"µº"},
    Terceiros{'N', U"ÑŃ"},  Terceiros{'O', U"ØÓ"},    Terceiros{'P', U"ÞÖ"},
    Terceiros{'Q', U"/@Ä"}, Terceiros{'R', U"®¶"},    Terceiros{'S', U"ß§ẞŚ"},
    Terceiros{'T', U"ŦÞ"},  Terceiros{'U', U"↓↑Ú"},   Terceiros{'V', U"“‘"},
    Terceiros{'W', U"?ŁÅ"}, Terceiros{'X', U"»Ź"},    Terceiros{'Y', U"←¥Ü"},
    Terceiros{'Z', U"«ÆŻ"},
};

constexpr quint32 LugarEspaco = 65;
constexpr char32_t UltimoSinal = 0x10FFFF; // numbers beyond are keys that type nothing

/// @return the letter of the key at a place, or Desconhecida
int Letra_Do_Lugar(quint32 lugar)
{
    for (const Fileira& fileira : Fileiras)
        if (lugar >= fileira.primeira && lugar - fileira.primeira < fileira.letras.size())
            return fileira.letras[lugar - fileira.primeira];
    return CodigosTecla::Desconhecida;
}

/// @return the number of a key without a letter that types this sign, or Desconhecida
int Do_Sinal(int tecla, quint32 lugar)
{
    // With AltGr or Shift some keyboards type a blank that does not break.
    if (lugar == LugarEspaco)
        return Qt::Key_Space;
    const auto sinal = std::ranges::find_if(
        Sinais, [&](const Sinal& s) { return s.tecla == tecla && s.lugar == lugar; });
    return sinal == Sinais.end() ? CodigosTecla::Desconhecida : sinal->codigo;
}

/// @return whether a sign tells that AltGr is held on the key of a letter
bool E_De_AltGr(int tecla, int letra)
{
    const auto terceiros = std::ranges::find(TerceirosSinais, letra, &Terceiros::letra);
    return terceiros != TerceirosSinais.end() &&
           terceiros->sinais.find(static_cast<char32_t>(tecla)) != std::u32string_view::npos;
}

/// @return whether a key types a letter of another script. Its keyboards have each on the key of a
///         Latin one, while signs and letters with accents lie anywhere.
bool E_De_Outra_Escrita(int tecla)
{
    const auto sinal = static_cast<char32_t>(tecla);
    if (sinal > UltimoSinal || !QChar::isLetter(sinal))
        return false;
    const QChar::Script escrita = QChar::script(sinal);
    return escrita != QChar::Script_Latin && escrita != QChar::Script_Common;
}

bool Segura_AltGr(const QKeyEvent& tecla)
{
    // The modifier that the platform has it under; on Windows it is Ctrl and Alt anyway.
    constexpr quint32 Quinto = E_Windows ? 0 : 0x80;
    return tecla.modifiers().testFlag(Qt::GroupSwitchModifier) ||
           (tecla.nativeModifiers() & Quinto) != 0;
}

template <typename Pares>
int Procura(const Pares& pares, int tecla)
{
    const auto par = std::ranges::find(pares, tecla, &Par::tecla);
    return par == pares.end() ? CodigosTecla::Desconhecida : par->codigo;
}

/// @return the number that lies as far from primeiroCodigo as the key from primeira
int Da_Faixa(int tecla, int primeira, int primeiroCodigo)
{
    return tecla - primeira + primeiroCodigo;
}

} // namespace

int CodigosTecla::Codigo(int tecla, Qt::KeyboardModifiers modificadores)
{
    const bool bloco = modificadores.testFlag(Qt::KeypadModifier);
    if (tecla >= Qt::Key_A && tecla <= Qt::Key_Z)
        return Da_Faixa(tecla, Qt::Key_A, 'A');
    if (tecla >= Qt::Key_0 && tecla <= Qt::Key_9)
        return Da_Faixa(tecla, Qt::Key_0, bloco ? 96 : '0');
    if (tecla >= Qt::Key_F1 && tecla <= Qt::Key_F24)
        return Da_Faixa(tecla, Qt::Key_F1, 112);
    const int do_bloco = bloco ? Procura(Bloco, tecla) : Desconhecida;
    return do_bloco != Desconhecida ? do_bloco : Procura(Principais, tecla);
}

int CodigosTecla::Estado_Shift(Qt::KeyboardModifiers modificadores)
{
    return (modificadores.testFlag(Qt::ShiftModifier) ? 1 : 0) +
           (modificadores.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (modificadores.testFlag(Qt::AltModifier) ? 4 : 0);
}

CodigosTecla::Pressao CodigosTecla::Le_Tecla(const QKeyEvent& tecla)
{
    constexpr int AltGr = 2 + 4;
    const Qt::KeyboardModifiers modificadores = tecla.modifiers();
    Pressao lida{Codigo(tecla.key(), modificadores), Estado_Shift(modificadores)};
    if (Segura_AltGr(tecla))
        lida.shift |= AltGr;
    if (lida.codigo != Desconhecida)
        return lida;
    if (E_Windows) {
        // There the number is at hand.
        const quint32 numero = tecla.nativeVirtualKey();
        lida.codigo = numero > 0 && numero < Desconhecida ? static_cast<int>(numero) : Desconhecida;
        return lida;
    }
    const quint32 lugar = tecla.nativeScanCode();
    const int letra = Letra_Do_Lugar(lugar);
    if (letra == Desconhecida) {
        lida.codigo = Do_Sinal(tecla.key(), lugar);
    } else if (E_De_AltGr(tecla.key(), letra)) {
        // The platform may keep to itself that AltGr is held.
        lida.shift |= AltGr;
        lida.codigo = letra;
    } else if ((lida.shift & AltGr) == AltGr || E_De_Outra_Escrita(tecla.key())) {
        lida.codigo = letra;
    }
    return lida;
}
