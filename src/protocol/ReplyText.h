#pragma once

#include "protocol/DeviceContext.h"
#include "protocol/Packet.h"

namespace touchpanel {

/// Writes the text of a version reply, "major.minor" or "major.minor.build" with at least four digits, NUL
/// included. A reply of any other length than those two writes nothing.
void formatFirmwareVersion(const PacketBuffer& reply, char (&text)[20]);

/// Writes the text of an optical device's bar code fields, NUL included: at most 38 characters, such as
/// "A01B02C-D3E-04-0506-0012345". The serial number is signed.
void formatBarCode(const PacketBuffer& reply, char (&text)[40]);

}  // namespace touchpanel
