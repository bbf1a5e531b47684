// Per-window state of a standard control, created at WM_NCCREATE and freed
// at WM_NCDESTROY.
#pragma once

#include <windows.h>

#include <memory>
#include <unordered_map>

namespace platform::user {

template <typename State> class ControlStates {
public:
    State* Find(HWND hwnd) {
        auto it = m_states.find(hwnd);
        return it == m_states.end() ? nullptr : it->second.get();
    }
    State& Create(HWND hwnd) { return *(m_states[hwnd] = std::make_unique<State>()); }
    void Erase(HWND hwnd) { m_states.erase(hwnd); }

private:
    std::unordered_map<HWND, std::unique_ptr<State>> m_states;
};

// Tells the parent about a control's notification through WM_COMMAND.
inline void NotifyParent(HWND control, UINT code) {
    HWND parent = GetParent(control);
    if (parent)
        SendMessage(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                    reinterpret_cast<LPARAM>(control));
}

} // namespace platform::user
