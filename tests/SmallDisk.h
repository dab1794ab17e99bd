#pragma once

#include "tests/TemporaryFolder.h"

#include <sys/mount.h>

namespace tessivo {

/// A small disk of its own in memory, where the system lets us mount one.
class SmallDisk final {
public:
    explicit SmallDisk(std::size_t bytes) {
        const std::string options = "size=" + std::to_string(bytes) + ",mode=0755";
        m_isMounted = ::mount("tmpfs", m_folder.path().c_str(), "tmpfs", 0, options.c_str()) == 0;
    }
    ~SmallDisk() {
        if (m_isMounted) ::umount2(m_folder.path().c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return m_isMounted; }
    const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
    bool m_isMounted = false;
};

} // namespace tessivo
