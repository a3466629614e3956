// The report operations and the record writer: every pass reports problems here by number, and
// every compiled rung reaches the listing through `WriteRecord`.
//
// Error file lines, each ended by carriage return and line feed:
//   #F#<source name>                          a program starts
//   #E#NERR=<n>#RUNG=<r>[#ITEM=<item>][#STRG=<text>]   an error (#W# for a warning)
//   #F#<file> and #J#NERR=<n>#RUNG=<rung text> : <name>  an error of the label pass
#pragma once

#include <cstdint>
#include <string_view>

namespace rungc {

struct CompileSession;

// Creates the listing (directory + name) and the error file beside it and writes the listing
// header; 0 on success, -1 when either file cannot be created.
int OpenOutputFiles(CompileSession& session, std::string_view name, std::string_view directory);

// An error without texts; dropped while the rung's error latch is set, sets it otherwise.
void ReportError(CompileSession& session, std::int32_t number);
// An error with a report item and a report text (empty = none); latched like ReportError.
void ReportErrorText(CompileSession& session, std::int32_t number, std::string_view item,
                     std::string_view text);
// A warning: never dropped, never latches.
void ReportWarning(CompileSession& session, std::int32_t number, std::string_view item,
                   std::string_view text);
// An error of the label pass: dropped while the latch is set, but does not set it.
void ReportLabelError(CompileSession& session, std::int32_t number, std::string_view item,
                      std::string_view text);

// Writes one record. Kinds: 'E', 'W', 'J' (error file), 'F' (both files), 'R' (a compiled rung;
// `text` is rewritten in place into its listing form first), 0 (a plain listing line). Every
// marked listing line is added to the listing checksum. For 'R' the buffer must hold whole
// units: it is read up to the end of the unit that holds the text's first NUL. Gives 0.
int WriteRecord(CompileSession& session, char kind, char* text);
// The same for records whose text is not rewritten (every kind but 'R').
int WriteRecord(CompileSession& session, char kind, std::string_view text);
// A text constant goes to the string_view form (without this a literal would bind to `char*`).
inline int WriteRecord(CompileSession& session, char kind, const char* text) {
  return WriteRecord(session, kind, std::string_view(text));
}

// Adds the bytes of a listing line, each taken as signed, to the listing checksum.
void AddToListingChecksum(CompileSession& session, std::string_view bytes);

}  // namespace rungc
