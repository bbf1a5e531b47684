// The terminals compared: a fresh 24 by 80 screen behind each, fed bytes.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

class Contender {
public:
    virtual ~Contender() = default;
    virtual void Feed(const char* data, std::size_t size) = 0;
    // A character of the screen, for checking that the contenders agree.
    virtual char32_t CharAt(int row, int col) = 0;
};

// name is "ours", "libvterm" or "libtsm".
std::unique_ptr<Contender> MakeContender(const std::string& name);
