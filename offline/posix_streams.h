// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "offline/posix_tree.h"

namespace scourwell {

// Only what is an ordinary file is opened: a pipe would wait, a device would do something.
Outcome OpenReaderAt(const ItemName& item, std::unique_ptr<FileReader>* reader);
// `tree` hears of the change and outlives the writer.
Outcome OpenWriterAt(PosixFiles::Tree& tree, const PosixSpot& spot,
                     std::unique_ptr<FileWriter>* writer);
Outcome AppendAt(const ItemName& item, std::string_view text);

}  // namespace scourwell
