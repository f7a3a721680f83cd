/// Stands before libc++'s header of the same name. There, common members of std::string are declared to live in the
/// C++ library, which is not linked; with empty lists they are instantiated where they are used.
#pragma once

#define _LIBCPP_STRING_V1_EXTERN_TEMPLATE_LIST(_Func, _CharType)
#define _LIBCPP_STRING_UNSTABLE_EXTERN_TEMPLATE_LIST(_Func, _CharType)
