// What a display back end offers the desktop. Internal to the platform.
#pragma once

#include <windef.h>

#include <memory>
#include <string>

namespace platform::display {

class Backend {
public:
    virtual ~Backend() = default;
    // The descriptor that becomes readable when the display has input.
    virtual int Descriptor() const = 0;
    virtual void Update() = 0;
    // Turns every pending display event into messages: those already read
    // off the connection, and with read what the connection holds too. False
    // when the connection is gone.
    virtual bool ProcessInput(bool read) = 0;
    virtual unsigned WindowOf(HWND hwnd) const = 0;
};

// The X11 back end, or null with the reason in *error.
std::unique_ptr<Backend> CreateX11Backend(const char* name, std::string* error);

// What a waiting message loop does once the simulated user and the idle
// handler have nothing to do: with a display or a watched descriptor, brings
// the display up to date and waits for input (true); else false at once.
bool WaitInMessageLoop();

} // namespace platform::display
