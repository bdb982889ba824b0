#pragma once
// A library that is started with the program, updated each frame and ended with it.

namespace aurel {

class App;

class IExternalLib {
public:
    virtual ~IExternalLib() = default;
    virtual bool Init(App& app) = 0;
    virtual void Shutdown() = 0;
    virtual void Update(float seconds) = 0;
};

}  // namespace aurel
