// What differs between the operating systems that the host runs on: the one file of it that knows
// which one this is.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace host {

// To be called before anything else. Bytes go through the standard streams as they are; a reader
// who has gone fails the write and ends nothing. Where a stream is closed its place is held, so
// that no file that is opened later takes it, and to use it fails. A console shows UTF-8. What is
// written to stderr may have to be flushed. False where the places cannot be held.
bool PrepareStreams();

bool IsTerminal(int stream);    // one that understands the sequences of ANSI
int TerminalWidth(int stream);  // in columns; 0 without a terminal
// errno of a write that failed, or was made in part, and had errno 0 before it; EPIPE where the
// reader has gone.
int ErrorOfWrite();
unsigned ProcessorCount();

// Descriptors of files, read and written as bytes, which no program started from here inherits. -1
// and errno where a file cannot be opened.
int OpenToRead(const std::string& path);
int OpenToWrite(const std::string& path);       // one that is there
std::uint64_t SizeOf(const std::string& path);  // 0 where it cannot be told
bool IsPlainFile(int file);                     // of a known size, and can be sought in

// Makes an empty file or folder under a name that nothing has yet, and notes the name: a signal or
// Ctrl-C that ends the program removes the files noted, and then the folders that are empty. A
// private folder is for this user alone. False with errno.
bool MakeNotedFile(const std::string& path);
bool MakeNotedFolder(const std::string& path);
bool MakeNotedPrivateFolder(const std::string& path);
void ForgetNoted(const std::string& path);
// In one step, also over a file that is there. False with errno.
bool Rename(const std::string& from, const std::string& to);

// From here on what asks the program to end (Ctrl-C, the end of the session) is told by
// Interrupted alone, the first time; the second time ends it. What was ignored from the start
// stays ignored.
void HoldInterrupts();
bool Interrupted();
// Ends the program as the interrupt would have. The destructors have to have run.
[[noreturn]] void EndInterrupted();

// In a process that was copied from another: what is noted is the other's to remove, and an
// interrupt ends this one at once.
void BecomeChild();

// The clock of the zone in force, which is that of the library, too: that of the environment (TZ) or
// of the system until another one is asked for. A C library that knows no names of zones is helped
// by a first call.
void UseZoneOfEnvironment();
std::int32_t UtcOffset(std::int64_t seconds);  // to be added to UTC
std::tm LocalTime(std::int64_t seconds);
// From here on the zone of a name of the tz database: Europe/Berlin. False where there is none of
// that name, and the zone stays.
bool UseZoneNamed(const std::string& name);
// The name of the zone in force; empty where the system does not tell it.
std::string ZoneInForce();

}  // namespace host
