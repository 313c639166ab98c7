// Picks batch mode or window; nothing else.

int main() { return 0; }
