#pragma once
// The editor state: owns the one document for the life of the program and keeps the window title in
// step with it.

#include "app/i_state.h"
#include "doc/wirrel_doc.h"

namespace aurel {
class App;
}

namespace kovra {

class StateTitle : public aurel::IState {
public:
    void Attach(aurel::App& app) override;
    void Update() override;
    void Init() override {}
    void Shutdown() override {}

    WirrelDoc& Document() { return document_; }
    // "Untitled - Kovra", or the document's file name before the program's name.
    aurel::DualString Title() const;

private:
    aurel::App* app_ = nullptr;
    WirrelDoc document_;
};

}  // namespace kovra
