#pragma once

#include "commands/ActionKind.h"
#include "commands/Command.h"
#include "commands/ModalGroup.h"
#include "paramfile/DialectSettings.h"
#include "paramfile/Key.h"
#include "paramfile/MachineSection.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class CircularMovement;
class Control;
class Coolant;
class Factory;
class FeedRate;
class LinearMovement;
class MachineStatus;
class ModalCommand;
class MovTypeCom;
class MovementCommand;
class NCScan;
class Parameter;
class RegularCommand;
class RotaryAxes;
class Spindle;
class WordList;
struct DialectRules;

/// The modal commands of a dialect, owned by the command registry; null until they are made.
struct ModalCommands {
    LinearMovement* rapid = nullptr;
    LinearMovement* linear = nullptr;
    CircularMovement* clockwise = nullptr;
    CircularMovement* counterClockwise = nullptr;
    FeedRate* feedPerMinute = nullptr;
    FeedRate* feedPerRevolution = nullptr;
    MovTypeCom* absolute = nullptr;
    MovTypeCom* incremental = nullptr;
    Spindle* spindleStop = nullptr;
    Spindle* spindleClockwise = nullptr;
    Spindle* spindleCounterClockwise = nullptr;
    Coolant* coolantOn = nullptr;
    Coolant* coolantOff = nullptr;
    RegularCommand* toolChange = nullptr;

    [[nodiscard]] std::array<MovementCommand*, 4> Movements() const noexcept;
    [[nodiscard]] std::array<CircularMovement*, 2> Circles() const noexcept;
};

/// Builds the command model of an NCScan: makes the commands and address words of a dialect,
/// registers them, and gives them what the keys of a parameter file say. Operations that return an
/// int return 0 or a code of driver/returnCodes.h; all may throw std::bad_alloc.
class ModelBuilder {
public:
    /// `ncscan` must outlive the builder.
    explicit ModelBuilder(NCScan& ncscan) noexcept : m_ncscan(ncscan) {}

    /// Makes and registers the modal commands, with the defaults of each group. Returns 201 when
    /// the NCScan has no output factory.
    int CreateModalCommands();

    /// Called when all keys are read: settles what depends on more than one of them. Returns 0, 308
    /// or 400.
    [[nodiscard]] int Finish();

    /// Called before each key: what the one before configured is forgotten.
    void BeginKey() noexcept {
        m_configured = nullptr;
        m_addedWord = nullptr;
    }
    /// The command that the key gave a code, and the address word that it added; null when it did
    /// not.
    [[nodiscard]] const Command* ConfiguredCommand() const noexcept { return m_configured; }
    [[nodiscard]] Parameter* AddedWord() const noexcept { return m_addedWord; }

    /// For the actions of keys. A command that was not made is passed over.
    template<class Kind, class... Arguments>
    int Configure(Kind* command, const KeyValue& value, Arguments... arguments) {
        if (command == nullptr) {
            return 0;
        }
        command->InitInstSyntax(value.letters, value.number, GetFactory(), arguments...);
        m_configured = command;
        // A dialect that misses a word must not be used.
        const bool isTextLost = value.letters != nullptr && command->GetSyntaxString() == nullptr;
        return isTextLost || !command->HasWriter() ? outOfMemory() : 0;
    }
    /// `isEnd` tells the end of the program from a stop.
    int AddEndCommand(const KeyValue& value, bool isEnd);
    /// Makes and registers the word, which AddedWord then gives.
    int AddWord(const char* address);
    /// The same for an address, which becomes one more spelling in the list. What a number begins
    /// with begins none: kKeyValueUnknown.
    int AddAddress(const KeyValue& value, WordList& list);
    /// Makes a command for the code, which may have a fraction ("G59.1") or be a name ("SUPA"), and
    /// registers it. Returns 308 for a value that is no code.
    template<class Kind, class... Arguments>
    int AddCode(const KeyValue& value, ActionKind kind, Arguments&&... arguments) {
        return addCode(value, kind, std::make_unique<Kind>(std::forward<Arguments>(arguments)...));
    }
    /// The same for a movement command, which joins the group and moves like the others.
    template<class Kind, class... Arguments>
    int AddMovement(const KeyValue& value, Arguments&&... arguments) {
        auto command = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
        if constexpr (requires { command->HasWriter(); }) {
            if (!command->HasWriter()) {
                return outOfMemory();
            }
        }
        MovementCommand& movement = *command;
        const int code = addCode(value, ActionKind::kMovement, std::move(command));
        if (code == 0) {
            joinMovements(movement);
        }
        return code;
    }
    /// The same for a member of another modal group.
    template<class Kind, class... Arguments>
    int AddMember(const KeyValue& value, ActionKind kind, ModalGroup group,
                  Arguments&&... arguments) {
        auto command = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
        if (!command->HasWriter()) {
            return outOfMemory();
        }
        ModalCommand& member = *command;
        const int code = addCode(value, kind, std::move(command));
        if (code == 0) {
            joinGroup(member, group);
        }
        return code;
    }
    /// The control of the dialect, which the first key that asks for it makes.
    [[nodiscard]] Control& GetControl() const;
    /// The same for a key that gives movements stages to pass.
    [[nodiscard]] Control& GetStages() const;
    /// The rotary axes of the dialect's programs, likewise.
    [[nodiscard]] RotaryAxes& GetRotary() const;
    /// What the file says of the machine, and that a key wants its rotary axes.
    [[nodiscard]] MachineSection& Machine() noexcept { return m_machine; }
    void AskForRotaryAxes() noexcept { m_asksForRotaryAxes = true; }
    /// Kept until all keys are read.
    void SetLinearTolerance(std::string text) { m_linearTolerance = std::move(text); }
    void SetStrictCycles(bool areStrict) noexcept { m_areCyclesStrict = areStrict; }
    void SetSplitCircle(bool splits) noexcept { m_splitsCircle = splits; }
    void SetHome(int axis, std::string text) {
        m_home.at(static_cast<std::size_t>(axis)) = std::move(text);
    }
    void SetReferencePoints() noexcept { m_hasReferencePoints = true; }
    /// Says why the value of a key is not understood.
    void KeepBadValue(const char* key, const char* value);

    [[nodiscard]] const ModalCommands& Commands() const noexcept { return m_commands; }
    /// The circle centre words of the three axes; null where there is none yet.
    [[nodiscard]] std::array<Parameter*, 3>& CentreWords() noexcept { return m_centreWords; }
    [[nodiscard]] MachineStatus& Status() const noexcept;
    [[nodiscard]] DialectSettings& Settings() noexcept { return m_settings; }
    [[nodiscard]] DialectRules& Rules() const noexcept;
    [[nodiscard]] Factory* GetFactory() const noexcept;
    void SetLathe() noexcept { m_isLathe = true; }
    [[nodiscard]] bool IsLathe() const noexcept { return m_isLathe; }

private:
    [[nodiscard]] static int outOfMemory() noexcept;
    int addCode(const KeyValue& value, ActionKind kind, std::unique_ptr<Command> command);
    void joinMovements(MovementCommand& movement);
    void joinGroup(ModalCommand& member, ModalGroup group);
    int registerCommand(std::unique_ptr<Command> command);
    void finishWords();
    int finishControl(Control& control);
    int finishArcs(Control& control);
    void beginWithoutMovement(Control& control);
    int finishHome(Control& control);
    int finishRotary(Control& control);

    NCScan& m_ncscan;
    ModalCommands m_commands;
    std::array<Parameter*, 3> m_centreWords = {}; // owned by the parameter registry
    DialectSettings m_settings;
    MachineSection m_machine;
    bool m_asksForRotaryAxes = false;
    std::string m_linearTolerance;     // empty: the default
    std::array<std::string, 3> m_home; // empty: 0
    bool m_hasReferencePoints = false;
    bool m_splitsCircle = false;
    std::optional<bool> m_areCyclesStrict; // none: as the order of acting says
    bool m_isLathe = false;
    std::vector<MovementCommand*> m_laterMovements; // not owned
    const Command* m_configured = nullptr;
    Parameter* m_addedWord = nullptr;
};
