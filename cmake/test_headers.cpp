// The headers that the tests share are precompiled with this file.
