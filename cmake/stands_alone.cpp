// Linked with one whole library: proves that the library needs nothing but what it says it needs.
int main()
{
    return 0;
}
