// The objects the fake server plays. Every call is recorded (fake_dispatch.h).
#pragma once

#include "fake_classes.h"
#include "fake_dispatch.h"

namespace fake {

// A new top-level object of a class (what CoCreateInstance and the running
// object table hand out), with one reference.
IDispatch* createTopObject(const FakeClass& c);

}  // namespace fake
