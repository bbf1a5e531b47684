// The companion library's observer pattern: observers attach to an observable
// and are told when its owner calls NotifyObservers.
#pragma once

#include <vector>

class Observer {
public:
    virtual ~Observer() = default;
    // hint is whatever the notifier passed; the observable is the sender.
    virtual void Update(const class Observable* sender, void* hint) = 0;
};

class Observable {
public:
    virtual ~Observable() = default;
    virtual void AttachObserver(Observer* observer);
    // False when the observer was not attached.
    virtual bool DetachObserver(Observer* observer);
    virtual void NotifyObservers(void* hint) const;

protected:
    Observable() = default;

private:
    std::vector<Observer*> m_observers;
};
