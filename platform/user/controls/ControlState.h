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
        if (hwnd == m_last && m_last)
            return m_lastState;
        auto it = m_states.find(hwnd);
        if (it == m_states.end())
            return nullptr;
        m_last = hwnd;
        m_lastState = it->second.get();
        return m_lastState;
    }
    State& Create(HWND hwnd) {
        m_last = nullptr;
        return *(m_states[hwnd] = std::make_unique<State>());
    }
    void Erase(HWND hwnd) {
        m_last = nullptr;
        m_states.erase(hwnd);
    }

private:
    std::unordered_map<HWND, std::unique_ptr<State>> m_states;
    // The state found last, so a run of messages to one control skips the hash.
    HWND m_last = nullptr;
    State* m_lastState = nullptr;
};

// Tells the parent about a control's notification through WM_COMMAND.
inline void NotifyParent(HWND control, UINT code) {
    HWND parent = GetParent(control);
    if (parent)
        SendMessage(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                    reinterpret_cast<LPARAM>(control));
}

} // namespace platform::user
