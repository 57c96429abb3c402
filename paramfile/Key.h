#pragma once

class ModelBuilder;

/// How a key of the parameter file is told from others.
enum class KeyKind {
    kPrefix,  ///< every line that begins with the key is the key
    kVariant, ///< tells the milling variant, the lathe variant ("_LATHE") and further ones ("_2ND")
              ///< apart
    kWhole,   ///< the trimmed line is the key, on a mill and on a lathe alike
    kPassing ///< the same for an old key that only newer ones give a meaning: its value line may be
             ///< missing, and is read as a line of its own as well
};

/// The value line of an entry: trimmed, not empty, and for a command split into letters and number.
struct KeyValue {
    char* text;              ///< writable
    char* letters = nullptr; ///< null when the code has none
    int number = -1;         ///< -1 when the code has none
    bool isWhole = true;     ///< the line is the key, and does not only begin with it
};

/// A key line of the parameter file and what its value line does: a row of data. What the arguments
/// mean is the matter of the operation that takes them.
struct Key {
    /// How the value line is read, and what follows it.
    enum class Form {
        kText,   ///< as it stands
        kCode,   ///< a command's code, "G01"
        kAddress ///< an address; two lines behind it tell its number format
    };

    const char* text;
    KeyKind kind;
    Form form;
    /// Returns 0 or a return code.
    int (*act)(ModelBuilder& builder, const KeyValue& value, int argument);
    int argument = 0;
    bool addsUp = false; ///< entries of this key add up; else the last one wins

    [[nodiscard]] bool IsVariant() const noexcept { return kind == KeyKind::kVariant; }
    /// Whether the trimmed line is this key on this kind of machine.
    [[nodiscard]] bool Matches(const char* line, bool isLathe) const noexcept;
};
