/// The yardstick of the small program: what it costs to start and end a C++ process.
int main() {}
