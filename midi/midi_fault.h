#pragma once

#include <string_view>

#include "midi/midi_file.h"
#include "sequence/strstream.h"

/// Says why `Load` of `stream`, which is over `bytes`, is refused with `code` (-101 to -107) after
/// it took in the tracks of `read`. Goes over the bytes with the same classes, so that the place
/// agrees with the code.
MidiFault FindMidiFault(int code, const CZurSequence& read, std::strstream& stream,
                        std::string_view bytes);

/// The same for bytes that end inside the last channel message of `read`, which raises nothing.
MidiFault CutMessageFault(const CZurSequence& read, std::string_view bytes);
