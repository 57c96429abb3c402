#pragma once

#include "include/quillmark_messages.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

inline const std::string kRule = std::string(50, '*') + "\n";

/// The text of a heap string that the caller owns; "(none)" for null.
inline std::string taken(char* heapText) {
    std::string text = heapText == nullptr ? "(none)" : heapText;
    std::free(heapText);
    return text;
}

/// Gives each test a message file of its own, named by the variable QMTEST, an empty error stack,
/// and a trace stream in memory.
class MessageFixture : public testing::Test {
protected:
    MessageFixture() {
        stddbg = open_memstream(&m_trace, &m_traceSize);
        setenv("QMTEST", m_folder.path("messages").c_str(), 1);
    }
    ~MessageFixture() override {
        freeErrorStack();
        CatInitErrorFehlerFuncs(nullptr, nullptr);
        CatSetErrPar(kMessageParEnd);
        std::fclose(std::exchange(stddbg, nullptr));
        std::free(m_trace);
    }

    void useMessages(const std::string& content) const {
        m_folder.write("messages", content);
        ASSERT_EQ(CatInitError("QMTEST"), 0);
    }

    /// What was traced since the last call.
    std::string traced() {
        std::fflush(stddbg);
        const std::string all(m_trace, m_traceSize);
        return all.substr(std::exchange(m_seen, all.size()));
    }

    const TempFolder m_folder;
    char* m_trace = nullptr;
    std::size_t m_traceSize = 0;
    std::size_t m_seen = 0;
};
