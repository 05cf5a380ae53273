// A minimal shared library for the DynamicLibrary tests.
extern "C" __attribute__((visibility("default"))) int DynLibSampleAnswer()
{
    return 42;
}
