// Tests of the application: forms by name, the outermost handler, the fault box, the end.
#include "forms/application.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/scripted_desktop.h"

namespace zirvo::forms {
namespace {

TEST(Application, AFormThatNobodyRegisteredIsFault5) {
    ScriptedDesktop desktop;
    Application app(desktop);
    EXPECT_EQ(FaultOf([&] { app.Load("Form9"); }), fault::InvalidCall);
}

}  // namespace
}  // namespace zirvo::forms
