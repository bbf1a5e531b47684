#include "Observable.h"

#include <algorithm>

void Observable::AttachObserver(Observer* observer) {
    if (observer &&
        std::find(m_observers.begin(), m_observers.end(), observer) == m_observers.end())
        m_observers.push_back(observer);
}

bool Observable::DetachObserver(Observer* observer) {
    auto it = std::find(m_observers.begin(), m_observers.end(), observer);
    if (it == m_observers.end())
        return false;
    m_observers.erase(it);
    return true;
}

void Observable::NotifyObservers(void* hint) const {
    // A copy, so an observer may detach itself while being told.
    std::vector<Observer*> observers = m_observers;
    for (Observer* o : observers)
        o->Update(this, hint);
}
