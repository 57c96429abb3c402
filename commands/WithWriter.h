#pragma once

#include <memory>
#include <utility>

/// A command that owns the writer of its statements, put between the command and its base.
template<class Base, class Writer>
class WithWriter : public Base {
public:
    /// False when the factory could not make the writer: the command must not act then.
    [[nodiscard]] bool HasWriter() const noexcept { return m_writer != nullptr; }

protected:
    WithWriter() noexcept = default;
    /// Takes `writer` over, which may be null; the other arguments are the base's.
    template<class... Arguments>
    explicit WithWriter(Writer* writer, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), m_writer(writer) {}

    /// Takes `writer` over in place of the one before.
    void replaceWriter(Writer* writer) noexcept { m_writer.reset(writer); }
    [[nodiscard]] Writer& writer() const noexcept { return *m_writer; }

private:
    std::unique_ptr<Writer> m_writer;
};
