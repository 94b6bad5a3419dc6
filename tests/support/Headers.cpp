// SPDX-License-Identifier: GPL-3.0-or-later
// The program whose precompiled headers the tests use.
int main() {}
