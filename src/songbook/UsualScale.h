#pragma once

namespace Songbook {

/// Fills Notas and Notas_Mais with the twelve semitones as a delivered catalogue spells them: for
/// work without a catalogue, as the readers and the chord-line test need them.
void LoadUsualScale();

} // namespace Songbook
