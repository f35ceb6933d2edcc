#pragma once

// Boost.Regex, for everybody through this header. Which of its two versions its header
// brings depends on what of Boost was included before (a smart pointer, for one, switches
// it), and a program with both has two bodies under one name. Include this first.

#include <boost/regex.hpp>

#ifdef BOOST_REGEX_CXX03
#error "Something of Boost before this header switched the version of Boost.Regex."
#endif
