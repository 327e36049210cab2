#pragma once

#include "platform/linux/mediasession/PlayerState.h"

struct sd_bus_message;

namespace talmo {

/// Reads the reply of a player to `GetAll` of "org.mpris.MediaPlayer2.Player". A property of a
/// wrong type counts as absent, and long texts are cut.
PlayerState readPlayerProperties(sd_bus_message* reply);

}  // namespace talmo
