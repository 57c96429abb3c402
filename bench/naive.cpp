#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

/// The plain contestant: naive NC APT. A converter for the one dialect of mill.pp, written the way
/// one writes it in an afternoon with the C library: a line at a time, strtod, fprintf. It makes
/// the same bytes as quillmark for programs that carry at most one word of each address and at
/// most one G code of a modal group in a block, with numbers of at most five decimals (strtod
/// rounds once where quillmark adds the fraction to the integer part, which shows only at a tie).

namespace {

struct Point {
    double x, y, z;
};

struct Machine {
    Point position{0.0, 0.0, 0.0};
    int motion = 0; ///< 0 to 3, as in G0 to G3
    bool absolute = true;
    bool feedPerMinute = true;
    double feed = 0.0;
    int spindle = 0; ///< 1 clockwise, -1 counter-clockwise, 0 off
    double speed = 0.0;
    int tool = 0;
    bool toolAxisWritten = false;
};

/// The words of one block.
struct Block {
    bool has[128];     ///< by address letter; not for G and M
    double value[128]; ///< valid where `has` is true
    bool g[100];       ///< the G codes that stand on the block
    bool m[100];       ///< the M codes
};

char* trim(char* line) {
    while (*line == ' ') {
        ++line;
    }
    char* end = line + strcspn(line, "\r\n");
    while (end > line && end[-1] == ' ') {
        --end;
    }
    *end = '\0';
    return line;
}

char* skipRecordNumber(char* line) {
    if (*line == 'N') {
        ++line;
        while (*line >= '0' && *line <= '9') {
            ++line;
        }
    }
    return line;
}

void removeComments(char* line) {
    char* start = strchr(line, '(');
    while (start != nullptr) {
        const char* end = strchr(start, ')');
        if (end == nullptr) {
            *start = '\0';
            return;
        }
        memmove(start, end + 1, strlen(end + 1) + 1);
        start = strchr(start, '(');
    }
}

bool belongsToNumber(char c) { return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+'; }

void readWords(char* line, Block& block) {
    memset(&block, 0, sizeof block);
    while (*line != '\0') {
        const unsigned char address = static_cast<unsigned char>(*line++);
        if (address < 'A' || address > 'Z') {
            continue;
        }
        char* end = line;
        while (belongsToNumber(*end)) {
            ++end;
        }
        if (end == line) {
            continue;
        }
        // Cut off the rest for the moment: strtod takes the "0X5" of "G0X5" for a hexadecimal
        // number.
        const char next = *end;
        *end = '\0';
        const double value = strtod(line, nullptr);
        *end = next;
        line = end;
        if (address == 'G' || address == 'M') {
            if (value >= 0.0 && value < 100.0) {
                (address == 'G' ? block.g : block.m)[static_cast<int>(value)] = true;
            }
        } else {
            block.has[address] = true;
            block.value[address] = value;
        }
    }
}

void writeFeed(const Machine& machine, FILE* apt) {
    fprintf(apt, "FEDRAT/%10.4f,%s\n", machine.feed, machine.feedPerMinute ? "MMPM" : "MMPR");
}

void writeSpindle(const Machine& machine, FILE* apt) {
    if (machine.spindle == 0) {
        fputs("SPINDL/OFF\n", apt);
    } else {
        fprintf(apt, "SPINDL/%10.4f,RPM,%s\n", machine.speed, machine.spindle > 0 ? "CLW" : "CCLW");
    }
}

/// Takes the value of an address off the block, so that no later statement uses it again.
bool takeWord(Block& block, char address, double& value) {
    const int index = address;
    if (!block.has[index]) {
        return false;
    }
    value = block.value[index];
    block.has[index] = false;
    return true;
}

/// The statements of the G and M codes, in the order in which quillmark tries these codes.
void writeCommands(Machine& machine, Block& block, FILE* apt) {
    if (block.m[30]) {
        fputs("REWIND/0\nEND\n", apt);
    }
    if (block.g[91]) {
        machine.absolute = false;
        fputs("MODE/INCR,ON\n", apt);
    }
    if (block.g[90]) {
        machine.absolute = true;
        fputs("MODE/INCR,OFF\n", apt);
    }
    if (block.g[95] || block.g[94]) {
        machine.feedPerMinute = block.g[94];
        takeWord(block, 'F', machine.feed);
        writeFeed(machine, apt);
    }
    if (block.m[2]) {
        fputs("REWIND/0\nEND\n", apt);
    }
    if (block.m[6]) {
        double tool = machine.tool;
        takeWord(block, 'T', tool);
        machine.tool = static_cast<int>(tool);
        fprintf(apt, "LOADTL/%d\n", machine.tool);
    }
    if (block.m[9]) {
        fputs("COOLNT/OFF\n", apt);
    }
    if (block.m[8]) {
        fputs("COOLNT/ON\n", apt);
    }
    if (block.m[3] || block.m[4] || block.m[5]) {
        machine.spindle = block.m[3] ? 1 : (block.m[4] ? -1 : 0);
        takeWord(block, 'S', machine.speed);
        writeSpindle(machine, apt);
    }
}

bool readAxis(Block& block, char address, bool absolute, double& axis) {
    double value = 0.0;
    if (!takeWord(block, address, value)) {
        return false;
    }
    axis = absolute ? value : axis + value;
    return true;
}

void writeArc(const Point& start, const Point& end, const Point& centre, bool clockwise,
              FILE* apt) {
    const double rx = end.x - centre.x;
    const double ry = end.y - centre.y;
    const double rz = end.z - centre.z;
    const double radius = sqrt(rx * rx + ry * ry + rz * rz);
    if (radius < 1e-10) {
        return;
    }
    // The tangent is the cross product of the plane's normal and the way to the centre. It is
    // written out in full, since the sign of a zero shows in the output.
    const Point normal = clockwise ? Point{0.0, 0.0, 1.0} : Point{-0.0, -0.0, -1.0};
    const double dx = centre.x - start.x;
    const double dy = centre.y - start.y;
    const double dz = centre.z - start.z;
    const double tx = normal.y * dz - normal.z * dy;
    const double ty = normal.z * dx - normal.x * dz;
    const double tz = normal.x * dy - normal.y * dx;
    const double length = sqrt(tx * tx + ty * ty + tz * tz);
    fputs("AUTOPS\n", apt);
    fprintf(apt, "INDIRV/%11.5f,%11.5f, %11.5f\n", tx / length, ty / length, tz / length);
    fprintf(apt, "TLON,GOFWD/(CIRCLE/%13.5f, %13.5f, %13.5f,$\n", centre.x, centre.y, centre.z);
    fprintf(apt, "%13.5f),ON,(LINE/%13.5f,%13.5f,%13.5f,$\n", radius, centre.x, centre.y, centre.z);
    fprintf(apt, "%13.5f,%13.5f,%13.5f)\n", end.x, end.y, end.z);
}

void writeMove(Machine& machine, Block& block, FILE* apt) {
    bool moves = false;
    for (int motion = 3; motion >= 0; --motion) {
        if (block.g[motion]) {
            machine.motion = motion;
            moves = true;
        }
    }
    const Point start = machine.position;
    Point end = start;
    Point centre = start;
    moves |= readAxis(block, 'X', machine.absolute, end.x);
    moves |= readAxis(block, 'Y', machine.absolute, end.y);
    moves |= readAxis(block, 'Z', machine.absolute, end.z);
    const bool arc = machine.motion >= 2;
    if (arc) {
        moves |= readAxis(block, 'I', false, centre.x);
        moves |= readAxis(block, 'J', false, centre.y);
        moves |= readAxis(block, 'K', false, centre.z);
    }
    if (!moves) {
        return;
    }
    machine.position = end;
    if (!machine.toolAxisWritten) {
        fprintf(apt, "TLAXIS/%11.5f,%11.5f,%11.5f\n", 0.0, 0.0, 1.0);
        machine.toolAxisWritten = true;
    }
    if (arc) {
        writeArc(start, end, centre, machine.motion == 2, apt);
        return;
    }
    if (machine.motion == 0) {
        fputs("RAPID\n", apt);
    }
    fprintf(apt, "GOTO/%11.5f,%11.5f,%11.5f\n", end.x, end.y, end.z);
}

/// One block, its effects in the order in which quillmark has them.
void convertBlock(Machine& machine, Block& block, FILE* apt) {
    writeCommands(machine, block, apt);
    if (takeWord(block, 'F', machine.feed)) {
        writeFeed(machine, apt);
    }
    writeMove(machine, block, apt);
    if (takeWord(block, 'S', machine.speed) && machine.spindle != 0) {
        writeSpindle(machine, apt);
    }
    double tool = 0.0;
    if (takeWord(block, 'T', tool)) {
        machine.tool = static_cast<int>(tool);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fputs("usage: naive NC APT\n", stderr);
        return EXIT_FAILURE;
    }
    FILE* nc = fopen(argv[1], "r");
    FILE* apt = fopen(argv[2], "w");
    if (nc == nullptr || apt == nullptr) {
        fputs("naive: cannot open the files\n", stderr);
        return EXIT_FAILURE;
    }
    Machine machine;
    Block block;
    char line[256];
    while (fgets(line, sizeof line, nc) != nullptr) {
        char* text = skipRecordNumber(trim(line));
        removeComments(text);
        readWords(text, block);
        convertBlock(machine, block, apt);
    }
    fclose(nc);
    return fclose(apt) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
