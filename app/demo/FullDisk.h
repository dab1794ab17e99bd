#pragma once

namespace tessivo::demo {

/// While set, every write of this process to a file fails, as on a full disk.
void setDiskFull(bool full);

} // namespace tessivo::demo
