#pragma once

#include "platform/Capture.h"
#include "platform/linux/SystemTree.h"

namespace tessivo {

/// The device files of the cameras, whose names are what the cameras are known by.
class CameraFiles final {
public:
    /// The folder in which the system puts them, and the tree in which it tells of them.
    explicit CameraFiles(std::filesystem::path folder, SystemTree tree)
        : m_folder(std::move(folder)), m_tree(std::move(tree)) {}

    std::vector<std::filesystem::path> list() const;
    /// Denied where the file of a camera doesn't let us in. Of cameras made by programs that counts only
    /// where there is no other.
    AuthorizationStatus authorizationStatus() const;

    /// Tries a camera's file as a program would that is to open it, and lets go of it at once. Nothing
    /// where it opens and no other program streams from it. May wait for the device: never on the main
    /// thread.
    static std::optional<OpenFault> fault(const std::string& file);
    /// What the system's error number for such a file says.
    static OpenFault faultOf(int error);

private:
    std::filesystem::path m_folder;
    SystemTree m_tree;
};

} // namespace tessivo
