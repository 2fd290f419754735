// A program that does nothing: what it takes is what its libraries take to be loaded.
int main() {}
