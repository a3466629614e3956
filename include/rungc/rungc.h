/* The compiler module's one entry point: a complete compile of the project that "status.kpx" in
 * the current directory names. Results: 0 success, 4097 (0x1001) the status, project, listing or
 * error file could not be used, 4098 (0x1002) any other failure. */
#ifndef RUNGC_RUNGC_H_
#define RUNGC_RUNGC_H_

#include <stdint.h>

#if defined(_WIN32)
#define RUNGC_CALL __stdcall
/* The module definition file exports the function under its decorated name, alone. */
#define RUNGC_EXPORT
#else
#define RUNGC_CALL
#define RUNGC_EXPORT __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

RUNGC_EXPORT uint32_t RUNGC_CALL Compilatore32(uint32_t flag);

#ifdef __cplusplus
}
#endif

#endif /* RUNGC_RUNGC_H_ */
