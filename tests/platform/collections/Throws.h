// Whether fn throws the framework exception E (thrown as a pointer, as the
// framework does); the exception is deleted.
#pragma once

#include <afx.h>

template <class E, class Fn> bool ThrowsFramework(Fn fn) {
    try {
        fn();
    } catch (E* e) {
        e->Delete();
        return true;
    }
    return false;
}
