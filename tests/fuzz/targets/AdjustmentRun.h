// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "krenn/Network.h"
#include "krenn/adjust/Adjustment.h"

namespace Dorvane::Fuzz {

/// Reads an input file; nothing when it is refused, which has to be told as every refusal is.
std::optional<Krenn::Network> ReadNetwork(const std::string& text);

/// Reads a parameter file likewise.
std::optional<Krenn::Parameters> ReadParameterText(const std::string& text);

/// Adjusts a network and checks results and listing. A failed run has to be told as every refusal is.
void AdjustAndCheck(Krenn::Network network, Krenn::Type type, Krenn::Parameters parameters);

/// The input editor reads what the package reads, and what is left when rows are taken out, one in
/// `eachTaken`.
void EditAndCheck(const std::string& text, const std::optional<Krenn::Network>& network, unsigned eachTaken);

}  // namespace Dorvane::Fuzz
