// The profile files the benchmark writes and reads, and the baseline's way of
// doing the same work directly with POSIX calls.
#pragma once

#include <string>
#include <string_view>

namespace bench::profile {

// The names and values the benchmark uses: key i is "Key%05d", its value
// "Value %05d" followed by variant.
std::string KeyName(int i);
std::string Value(int i, char variant = '0');
// The line of key i, as the profile writes it.
std::string Line(int i, char variant = '0');
// The file of keys 0..count-1 in section "Settings", as the profile writes it.
std::string FileOf(int count);

// The durable replacement done directly: the whole content written to a
// temporary file with write, fsync, rename over path, fsync of the directory.
// Exits the program on failure, as the benchmark's figures would be void.
void RawReplace(const std::string& path, const std::string& bytes);
// The whole file, read with open and read into bytes; exits when it is missing.
void RawRead(const std::string& path, std::string& bytes);
// Reads the file and scans it for the first line "key=value" after the line
// "[section]" (exact names, no check for a later section: the least work a
// direct lookup can do); the value, or an empty view when there is none. The
// view points into bytes.
std::string_view RawLookup(const std::string& path, std::string_view section, std::string_view key,
                           std::string& bytes);
// Removes path and the lock and temporary files beside it.
void Remove(const std::string& path);

} // namespace bench::profile
