#pragma once
int ppcrypt(int option, char** lines);
