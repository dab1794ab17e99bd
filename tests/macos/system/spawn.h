#pragma once
#pragma GCC system_header

#include_next <spawn.h>

#define POSIX_SPAWN_CLOEXEC_DEFAULT 0x4000

int standInSetFlags(posix_spawnattr_t* attributes, int flags);
int standInSpawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* files,
                 const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[]);
#define posix_spawnattr_setflags standInSetFlags
#define posix_spawn standInSpawn
