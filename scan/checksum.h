// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/pump.h"

namespace scourwell {

// The exclusive or of all bytes; 0 for an empty file. No value when the pump closes meanwhile.
Outcome GetFileCheckSum(Files& files, Pump& pump, const std::string& path,
                        std::optional<std::uint8_t>* checksum);

}  // namespace scourwell
