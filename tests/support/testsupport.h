#ifndef SIGDB_TESTS_TESTSUPPORT_H
#define SIGDB_TESTS_TESTSUPPORT_H

#include <QByteArray>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace sigdbtest {

/// Bytes from hex text as people write it: "00 03 41 42", blanks and line breaks ignored.
QByteArray bytes(const char *hex);
/// The bytes as lower-case hex pairs separated by blanks.
std::string hex(const QByteArray &data);

/// Runs \a fn and returns what it printed to standard output (the diagnostic output).
template <typename Fn>
std::string captureStdout(Fn fn)
{
    std::fflush(stdout);
    testing::internal::CaptureStdout();
    fn();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

/// Restores the built-in default schema when it goes out of scope, for tests that load their
/// own tables into the process-wide table space.
class DefaultSchemaGuard
{
public:
    DefaultSchemaGuard() = default;
    ~DefaultSchemaGuard();
    DefaultSchemaGuard(const DefaultSchemaGuard &) = delete;
    DefaultSchemaGuard &operator=(const DefaultSchemaGuard &) = delete;
};

} // namespace sigdbtest

#endif
