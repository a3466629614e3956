// The sequencer: compiles the project's sequence file into "#S#" lines appended to the listing.
//
// Sequence file (project directory + listing name with the extension "VP"), binary:
//   header     38 characters, "- KORVA   1994       SEQ             ;" or the older
//              "- HALVERN 1992 RKX   SEQ             ;" (compared on the first word)
//   text area  the sequences' step records up to the first byte 0, at most 9,899 bytes; a
//              carriage return before a line feed is dropped
//   count      32-bit little-endian N; N - 1 sequences are compiled when N is above 26
//   records    N records of 12 bytes: name (8 bytes, ended by a byte 0), length (32-bit LE);
//              the sequences' texts are consecutive slices of the text area
// A step is 0xFF, a type byte and the type's operands (6 bytes each). Every step that writes
// a line gives "#S#" and four 8-character units; a sequence begins with "#S#SS" and its name,
// and the whole run ends with "#S#Ss______".
#pragma once

namespace rungc {

struct CompileSession;

// 1 the sequence file was read (the sequencer flag is set when it was read whole), -1 it is
// missing or its header is not accepted.
int ReadSequenceFile(CompileSession& session);
// 0 no sequence file was read, 1 compiled, 2 a sequence error number was set.
int CompileSequences(CompileSession& session);
// Compiles the sequence of row `index` from the working copy into the output buffer. 0 on
// success, and also when no step could be read; otherwise the number of steps read (the
// sequence fails). The sequence error number is cleared first and set by what fails.
int CompileSequence(CompileSession& session, int index);

}  // namespace rungc
