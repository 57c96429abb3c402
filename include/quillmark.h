/* The public interface of the quillmark library, for C and C++ hosts. */
#ifndef QUILLMARK_H
#define QUILLMARK_H

#if defined(__GNUC__)
#define QUILLMARK_API __attribute__((visibility("default")))
#else
#define QUILLMARK_API
#endif

#ifdef __cplusplus
#define QUILLMARK_ENUM_BASE : int
#define QUILLMARK_NOEXCEPT noexcept
extern "C" {
#else
#define QUILLMARK_ENUM_BASE
#define QUILLMARK_NOEXCEPT
#endif

/* The kind of output. */
typedef enum eOutputType QUILLMARK_ENUM_BASE {
    eOutputNone = 0,    /* no kind; refused with 201 */
    eOutputAPT = 1,     /* APT source, the kind that is produced */
    eOutputToolpath = 2 /* known to the command line, refused with 201 */
} eOutputType;

/* Converts one NC program into APT source.
 *
 * paramfile   describes the dialect of the NC program
 * ncfile      the NC program, one block per line
 * outputfile  the APT source to be written
 * logfile     the log to be written, or null for none
 *
 * Returns 0, or the code of the first step that failed: 200 to 203 for the NC file, the kind of
 * output, the output and the log, 300 to 307 for the parameter file, 345 for an unsupported
 * dialect, 400 when memory is exhausted. What was written until then stays in the files.
 *
 * One call is one conversion, in the caller's thread; calls must not overlap. An arc without a
 * direction ends the process with an assertion report, after everything before it was written. A
 * parameter file of the old generation without a known machine type ends it with status 99. */
QUILLMARK_API int dllentry(const char* paramfile, const char* ncfile, const char* outputfile,
                           const char* logfile, eOutputType type) QUILLMARK_NOEXCEPT;

/* Copies the version banner, 54 characters without a terminating zero, into `buffer` and stores
 * its length. The buffer holds at least 64 bytes. */
QUILLMARK_API void gtvers(char* buffer, int* length) QUILLMARK_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif
