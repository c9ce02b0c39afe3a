// Stands in for the header of Windows' compilers: the generated files include it and use nothing
// of it.
