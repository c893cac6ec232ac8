#include "songbook/UsualScale.h"

#include "chords/Notas.h"

namespace Songbook {

void LoadUsualScale()
{
    Funcoes::Notas = {u"?"_qs,  u"C"_qs, u"C#"_qs, u"D"_qs, u"D#"_qs, u"E"_qs, u"F"_qs,
                      u"F#"_qs, u"G"_qs, u"G#"_qs, u"A"_qs, u"A#"_qs, u"B"_qs};
    Funcoes::Notas_Mais = {u"?"_qs,  u"C"_qs, u"Db"_qs, u"D"_qs, u"Eb"_qs, u"E"_qs, u"F"_qs,
                           u"Gb"_qs, u"G"_qs, u"Ab"_qs, u"A"_qs, u"Bb"_qs, u"B"_qs};
}

} // namespace Songbook
