#!/usr/bin/perl
# Runs Talmo's now-playing helper within the system's own perl, which the system lets see the media
# session:
#
#     mediaremote-adapter.pl FRAMEWORK stream
#     mediaremote-adapter.pl FRAMEWORK get [--no-artwork]
#     mediaremote-adapter.pl FRAMEWORK send COMMAND
#
# FRAMEWORK is the path of MediaRemoteAdapter.framework. Exits 2 when called wrongly, 1 on failure.
use strict;
use warnings;

sub fail {
    my ($status, $message) = @_;
    print STDERR "mediaremote-adapter: $message\n";
    exit $status;
}

# What kept the last library from being loaded, without the place in this script that perl appends.
sub reason {
    my $text = DynaLoader::dl_error();
    $text =~ s/ at \Q$0\E line \d.*//s;
    return $text;
}

my ($framework, @arguments) = @ARGV;
defined $framework
    or fail(2, 'usage: mediaremote-adapter.pl FRAMEWORK stream|get [--no-artwork]|send COMMAND');

# What the helper is loaded by is part of perl. DynaLoader.pm around it, which searches folders for
# libraries, would take longer to read than all the rest takes to run.
DynaLoader::boot_DynaLoader('DynaLoader');
my $library = "$framework/MediaRemoteAdapter";
my $handle = DynaLoader::dl_load_file($library, 0)
    or fail(1, 'cannot load the library: ' . reason());
my $symbol = DynaLoader::dl_find_symbol($handle, 'talmoAdapterMain')
    or fail(1, 'cannot use the library: ' . reason());

# The library's function takes its arguments from the environment, and does not return.
$ENV{TALMO_ADAPTER_ARGUMENT_COUNT} = @arguments;
$ENV{"TALMO_ADAPTER_ARGUMENT_$_"} = $arguments[$_] for 0 .. $#arguments;
my $main = DynaLoader::dl_install_xsub('main::talmoAdapterMain', $symbol);
&$main();
