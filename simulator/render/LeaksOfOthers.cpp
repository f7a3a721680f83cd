/// What the leak sanitizer is told: fontconfig keeps its fonts until the process ends, and nobody need hear of it.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

extern "C" const char* __lsan_default_options()
{
    return "print_suppressions=0";
}
