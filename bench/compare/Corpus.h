// Deterministic byte streams for the side-by-side comparison: the same seed
// and size always give the same bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace corpus {

enum class Stream {
    Plain,  // lines of text ended by CR LF, scrolling the whole screen
    Editor, // positioning, attributes, erases, line and character editing, tabs, graphics
    Region, // heavy scrolling inside a region with index and reverse index
};

const char* Name(Stream stream);
bool FromName(const std::string& name, Stream& stream);

// At least size bytes (the last item is completed), 7-bit, for 24 by 80 screens.
std::string Make(Stream stream, std::size_t size, std::uint64_t seed = 1);

} // namespace corpus
