#pragma once

#include "engine/EventQueue.h"

namespace quarvelle {

/// The toolkit's event queue, on the user-interface thread.
class QtEventQueue final : public EventQueue {
public:
    void yield() override;
    void wait() override;
};

} // namespace quarvelle
