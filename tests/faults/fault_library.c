/*
 * A library to preload: it makes one system call of a program fail, or do less than it was asked
 * to, or come at a bad moment.
 *
 *     MORVANE_FAULT=KIND:NUMBER:EFFECT   the call of this kind with this number, from 1, has the
 *                                        effect; with a "+" behind the number all later ones too
 *     MORVANE_FAULT_COUNTS=FILE          at its end the program writes how many calls of each kind
 *                                        there were, a line each
 *     MORVANE_NO_TMPFILE=1               the file system makes no file without a name
 *
 * The effect is an error by its number; or "short", which moves one byte; or "none", which moves
 * no byte and is no error; or "garbled", which writes everything with another first byte; or
 * "touch=FILE", which gives a file another time before the call; or "cut", which removes the
 * content of the file that was mapped last; or "signal=NUMBER", which sends a signal to the
 * program.
 */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

enum kind {
  open_kind,
  read_kind,
  write_kind,
  stat_kind,
  opendir_kind,
  readdir_kind,
  mkdir_kind,
  unlink_kind,
  truncate_kind,
  seek_kind,
  close_kind,
  poll_kind,
  fcntl_kind,
  rename_kind,
  sync_kind,
  copy_kind,
  access_kind,
  link_kind,
  chmod_kind,
  chown_kind,
  map_kind,
  kinds
};

static const char* const names[kinds] = {
    "open",   "read",     "write",  "stat",  "opendir", "readdir", "mkdir",
    "unlink", "truncate", "seek",   "close", "poll",    "fcntl",   "rename",
    "sync",   "copy",     "access", "link",  "chmod",   "chown",   "map"};
static unsigned calls[kinds];
static int mapped_last = -1;

/* What MORVANE_FAULT asks for. */
static int chosen = -1;
static unsigned number;
static int from_then_on;
static int error_number;
static int is_short;
static int is_garbled;
static int cuts;
static int sent_signal;
static const char* touched;

static unsigned long parse_number(const char* text, char** end) {
  return strtoul(text, end, 10);
}

__attribute__((constructor)) static void read_request(void) {
  const char* request = getenv("MORVANE_FAULT");
  if (request == NULL) {
    return;
  }
  const size_t length = strcspn(request, ":");
  for (int kind = 0; kind < kinds; ++kind) {
    if (strlen(names[kind]) == length && strncmp(request, names[kind], length) == 0) {
      chosen = kind;
    }
  }
  char* rest = NULL;
  number = (unsigned)parse_number(request + length + 1, &rest);
  from_then_on = *rest == '+';
  const char* effect = strrchr(request, ':') + 1;
  is_short = strcmp(effect, "short") == 0;
  is_garbled = strcmp(effect, "garbled") == 0;
  touched = strncmp(effect, "touch=", 6) == 0 ? effect + 6 : NULL;
  cuts = strcmp(effect, "cut") == 0;
  sent_signal = strncmp(effect, "signal=", 7) == 0 ? (int)parse_number(effect + 7, &rest) : 0;
  error_number = (int)parse_number(effect, &rest);
}

__attribute__((destructor)) static void write_counts(void) {
  const char* path = getenv("MORVANE_FAULT_COUNTS");
  FILE* file = path != NULL ? fopen(path, "w") : NULL;
  if (file == NULL) {
    return;
  }
  for (int kind = 0; kind < kinds; ++kind) {
    fprintf(file, "%s %u\n", names[kind], calls[kind]);
  }
  fclose(file);
}

/* What happens beside a call, which is as it is without it. Returns whether the effect is such. */
static int happens_beside(void) {
  if (touched != NULL) {
    const struct timespec times[2] = {{0, 0}, {0, 0}};
    utimensat(AT_FDCWD, touched, times, 0);
  } else if (cuts) {
    char path[64];
    snprintf(path, sizeof path, "/proc/self/fd/%d", mapped_last);
    (void)(truncate(path, 0) == 0);
  } else if (sent_signal != 0) {
    kill(getpid(), sent_signal);
  }
  return touched != NULL || cuts || sent_signal != 0;
}

/* Counts a call. Returns whether it is one that the request changes; errno is set then. */
static int is_chosen(enum kind kind) {
  const unsigned now = ++calls[kind];
  if ((int)kind != chosen || !(now == number || (from_then_on && now > number))) {
    return 0;
  }
  if (happens_beside()) {
    return 0;
  }
  errno = error_number;
  return 1;
}

/* A call that was chosen either fails or moves fewer bytes than it was asked to. */
static int fails(void) {
  return error_number != 0;
}

/* The function that the program would have called. */
#define NEXT(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

static mode_t mode_in(int flags, va_list arguments) {
  const int has_mode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  return has_mode ? (mode_t)va_arg(arguments, unsigned) : 0;
}

/* Whether a call asks for what MORVANE_NO_TMPFILE forbids; errno is set then. */
static int is_refused(int flags) {
  if ((flags & O_TMPFILE) != O_TMPFILE || getenv("MORVANE_NO_TMPFILE") == NULL) {
    return 0;
  }
  errno = EOPNOTSUPP;
  return 1;
}

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_in(flags, arguments);
  va_end(arguments);
  return is_chosen(open_kind) ? -1 : NEXT(open)(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_in(flags, arguments);
  va_end(arguments);
  return is_chosen(open_kind) ? -1 : NEXT(open64)(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_in(flags, arguments);
  va_end(arguments);
  return is_refused(flags) || is_chosen(open_kind) ? -1 : NEXT(openat)(folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_in(flags, arguments);
  va_end(arguments);
  return is_refused(flags) || is_chosen(open_kind) ? -1 : NEXT(openat64)(folder, path, flags, mode);
}

/* How many bytes a chosen call moves. */
static size_t shortened(size_t count) {
  return is_short && count > 0 ? 1 : 0;
}

ssize_t read(int file, void* bytes, size_t count) {
  if (!is_chosen(read_kind)) {
    return NEXT(read)(file, bytes, count);
  }
  return fails() ? -1 : NEXT(read)(file, bytes, shortened(count));
}

static ssize_t write_garbled(int file, const void* bytes, size_t count) {
  unsigned char* other = malloc(count);
  if (other == NULL) {
    abort();
  }
  memcpy(other, bytes, count);
  other[0] ^= 1;
  const ssize_t written = NEXT(write)(file, other, count);
  free(other);
  return written;
}

ssize_t pread(int file, void* bytes, size_t count, off_t offset) {
  if (!is_chosen(read_kind)) {
    return NEXT(pread)(file, bytes, count, offset);
  }
  return fails() ? -1 : NEXT(pread)(file, bytes, shortened(count), offset);
}

ssize_t pread64(int file, void* bytes, size_t count, off64_t offset) {
  return pread(file, bytes, count, offset);
}

ssize_t write(int file, const void* bytes, size_t count) {
  if (!is_chosen(write_kind)) {
    return NEXT(write)(file, bytes, count);
  }
  if (is_garbled && count > 0) {
    return write_garbled(file, bytes, count);
  }
  return fails() ? -1 : NEXT(write)(file, bytes, shortened(count));
}

ssize_t copy_file_range(int from, off_t* offset, int to, off_t* other, size_t count,
                        unsigned flags) {
  if (!is_chosen(copy_kind)) {
    return NEXT(copy_file_range)(from, offset, to, other, count, flags);
  }
  return fails() ? -1 : NEXT(copy_file_range)(from, offset, to, other, shortened(count), flags);
}

int fstat(int file, struct stat* status) {
  return is_chosen(stat_kind) ? -1 : NEXT(fstat)(file, status);
}

int stat(const char* path, struct stat* status) {
  return is_chosen(stat_kind) ? -1 : NEXT(stat)(path, status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) {
  return is_chosen(stat_kind) ? -1 : NEXT(fstatat)(folder, path, status, flags);
}

DIR* opendir(const char* path) {
  return is_chosen(opendir_kind) ? NULL : NEXT(opendir)(path);
}

struct dirent* readdir(DIR* folder) {
  return is_chosen(readdir_kind) ? NULL : NEXT(readdir)(folder);
}

int mkdir(const char* path, mode_t mode) {
  return is_chosen(mkdir_kind) ? -1 : NEXT(mkdir)(path, mode);
}

int unlink(const char* path) {
  return is_chosen(unlink_kind) ? -1 : NEXT(unlink)(path);
}

int unlinkat(int folder, const char* path, int flags) {
  return is_chosen(unlink_kind) ? -1 : NEXT(unlinkat)(folder, path, flags);
}

int ftruncate(int file, off_t length) {
  return is_chosen(truncate_kind) ? -1 : NEXT(ftruncate)(file, length);
}

off_t lseek(int file, off_t offset, int whence) {
  return is_chosen(seek_kind) ? -1 : NEXT(lseek)(file, offset, whence);
}

int close(int file) {
  const int status = NEXT(close)(file);
  return is_chosen(close_kind) ? -1 : status;
}

int poll(struct pollfd* files, nfds_t count, int timeout) {
  return is_chosen(poll_kind) ? -1 : NEXT(poll)(files, count, timeout);
}

int fcntl(int file, int command, ...) {
  va_list arguments;
  va_start(arguments, command);
  void* argument = va_arg(arguments, void*);
  va_end(arguments);
  return is_chosen(fcntl_kind) ? -1 : NEXT(fcntl)(file, command, argument);
}

int rename(const char* from, const char* to) {
  return is_chosen(rename_kind) ? -1 : NEXT(rename)(from, to);
}

int renameat(int folder, const char* from, int other, const char* to) {
  return is_chosen(rename_kind) ? -1 : NEXT(renameat)(folder, from, other, to);
}

int renameat2(int folder, const char* from, int other, const char* to, unsigned flags) {
  return is_chosen(rename_kind) ? -1 : NEXT(renameat2)(folder, from, other, to, flags);
}

int linkat(int folder, const char* from, int other, const char* to, int flags) {
  return is_chosen(link_kind) ? -1 : NEXT(linkat)(folder, from, other, to, flags);
}

int access(const char* path, int mode) {
  return is_chosen(access_kind) ? -1 : NEXT(access)(path, mode);
}

int fchmod(int file, mode_t mode) {
  return is_chosen(chmod_kind) ? -1 : NEXT(fchmod)(file, mode);
}

int fchown(int file, uid_t owner, gid_t group) {
  return is_chosen(chown_kind) ? -1 : NEXT(fchown)(file, owner, group);
}

void* mmap(void* address, size_t length, int access, int flags, int file, off_t offset) {
  if (file >= 0 && is_chosen(map_kind)) {
    return MAP_FAILED;
  }
  mapped_last = file >= 0 ? file : mapped_last;
  return NEXT(mmap)(address, length, access, flags, file, offset);
}

void* mmap64(void* address, size_t length, int access, int flags, int file, off64_t offset) {
  return mmap(address, length, access, flags, file, offset);
}

int fsync(int file) {
  return is_chosen(sync_kind) ? -1 : NEXT(fsync)(file);
}

int sync_file_range(int file, off64_t offset, off64_t count, unsigned flags) {
  return is_chosen(sync_kind) ? -1 : NEXT(sync_file_range)(file, offset, count, flags);
}

/* The names that a hardened build calls instead. */
ssize_t __read_chk(int file, void* bytes, size_t count, size_t room);
ssize_t __read_chk(int file, void* bytes, size_t count, size_t room) {
  return count > room ? (abort(), -1) : read(file, bytes, count);
}

ssize_t __pread_chk(int file, void* bytes, size_t count, off_t offset, size_t room);
ssize_t __pread_chk(int file, void* bytes, size_t count, off_t offset, size_t room) {
  return count > room ? (abort(), -1) : pread(file, bytes, count, offset);
}

int __open_2(const char* path, int flags);
int __open_2(const char* path, int flags) {
  return open(path, flags);
}

int __openat_2(int folder, const char* path, int flags);
int __openat_2(int folder, const char* path, int flags) {
  return openat(folder, path, flags);
}

int __poll_chk(struct pollfd* files, nfds_t count, int timeout, size_t room);
int __poll_chk(struct pollfd* files, nfds_t count, int timeout, size_t room) {
  return count * sizeof *files > room ? (abort(), -1) : poll(files, count, timeout);
}

int fcntl64(int file, int command, ...);
int fcntl64(int file, int command, ...) {
  va_list arguments;
  va_start(arguments, command);
  void* argument = va_arg(arguments, void*);
  va_end(arguments);
  return fcntl(file, command, argument);
}
