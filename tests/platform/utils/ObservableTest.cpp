// The observer pattern the library's layouts use to tell their views of a change.
#include <Observable.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

class Subject : public Observable {};

class Recorder : public Observer {
public:
    explicit Recorder(std::vector<int>& log, int id) : m_log(log), m_id(id) {}
    void Update(const Observable* sender, void* hint) override {
        m_log.push_back(m_id);
        lastSender = sender;
        lastHint = hint;
        if (detachFrom)
            detachFrom->DetachObserver(this);
    }
    const Observable* lastSender = nullptr;
    void* lastHint = nullptr;
    Observable* detachFrom = nullptr;

private:
    std::vector<int>& m_log;
    int m_id;
};

} // namespace

TEST(Observable, ObserversAreToldInTheOrderTheyAttachedOnceEach) {
    std::vector<int> log;
    Subject subject;
    Recorder a(log, 1), b(log, 2);
    subject.AttachObserver(&a);
    subject.AttachObserver(&b);
    subject.AttachObserver(&a); // already attached
    subject.AttachObserver(nullptr);
    int hint = 0;
    subject.NotifyObservers(&hint);
    EXPECT_EQ(log, (std::vector<int>{1, 2}));
    EXPECT_EQ(a.lastSender, &subject);
    EXPECT_EQ(b.lastHint, &hint);

    EXPECT_TRUE(subject.DetachObserver(&a));
    EXPECT_FALSE(subject.DetachObserver(&a));
    log.clear();
    subject.NotifyObservers(nullptr);
    EXPECT_EQ(log, std::vector<int>{2});
}

TEST(Observable, AnObserverMayDetachItselfWhileBeingTold) {
    std::vector<int> log;
    Subject subject;
    Recorder a(log, 1), b(log, 2), c(log, 3);
    subject.AttachObserver(&a);
    subject.AttachObserver(&b);
    subject.AttachObserver(&c);
    b.detachFrom = &subject;
    subject.NotifyObservers(nullptr);
    // Everyone attached when the notification began hears it.
    EXPECT_EQ(log, (std::vector<int>{1, 2, 3}));
    log.clear();
    subject.NotifyObservers(nullptr);
    EXPECT_EQ(log, (std::vector<int>{1, 3}));
}
