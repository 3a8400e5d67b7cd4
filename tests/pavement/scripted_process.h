// A process service that answers from a script and writes down what was asked of it.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "platform/process.h"

namespace zirvo::test {

class ScriptedProcess : public ProcessService {
public:
    int Identifier = 41;
    std::intptr_t Handle = 7;
    std::function<void()> Work;  ///< what the solver does; runs at the start, or in the wait if WorkInWait
    bool WorkInWait = true;
    std::vector<std::string>& Log;

    explicit ScriptedProcess(std::vector<std::string>& log) : Log(log) {}

    int StartHidden(const std::string& program) override {
        Log.push_back("start " + program);
        if (!WorkInWait && Work) {
            Work();
        }
        return Identifier;
    }
    std::intptr_t Open(int identifier) override {
        Log.push_back("open " + std::to_string(identifier));
        return Handle;
    }
    void Wait(std::intptr_t handle) override {
        Log.push_back("wait " + std::to_string(handle));
        if (WorkInWait && Work) {
            Work();
        }
    }
    void Close(std::intptr_t handle) override { Log.push_back("close " + std::to_string(handle)); }
};

}  // namespace zirvo::test
