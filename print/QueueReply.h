#pragma once

#include <QString>

namespace quarvelle {

/// Why the print server did not take the job that this thread gave it last; an empty text if it did, or if
/// this system has no print server to ask.
QString lastQueueRefusal();

} // namespace quarvelle
