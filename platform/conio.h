// Port input and output of the C runtime. The host has no hardware ports; it
// answers for the first IDE controller (0x1F0-0x1F7) from its settings, and
// reads 0xFF elsewhere.
#pragma once

int _inp(unsigned short port);
unsigned short _inpw(unsigned short port);
int _outp(unsigned short port, int databyte);
unsigned short _outpw(unsigned short port, unsigned short dataword);
