# Completion of stringhost for fish. The names of methods are the program's own, asked for as they are needed.
function __stringhost_methods
    stringhost list 2>/dev/null | string replace -r '\(.*' '' | sort -u
end

function __stringhost_needs_method
    set -l words 0
    set -l isValue 0
    for word in (commandline -opc)[2..-1]
        if test $isValue -eq 1
            set isValue 0
            continue
        end
        switch $word
            case --plugin --host-version --encoding --without --output --repeat
                set isValue 1
            case '-*'
            case '*'
                set words (math $words + 1)
        end
    end
    test $words -eq 1; and __fish_seen_subcommand_from list call explain help
end

complete -c stringhost -f
complete -c stringhost -l plugin -r -F -d 'The plugin, instead of the one beside the program'
complete -c stringhost -s h -l help -d 'Show the help'
complete -c stringhost -n __fish_use_subcommand -l version -d 'Show the version'
complete -c stringhost -n __fish_use_subcommand -a list -d 'List the methods'
complete -c stringhost -n __fish_use_subcommand -a call -d 'Call a method'
complete -c stringhost -n __fish_use_subcommand -a explain -d 'Show a call as the host sees it'
complete -c stringhost -n __fish_use_subcommand -a help -d 'Show the reference'
complete -c stringhost -n __fish_use_subcommand -a tour -d 'Show a few real calls'
complete -c stringhost -n __stringhost_needs_method -a '(__stringhost_methods)'
complete -c stringhost -n '__fish_seen_subcommand_from list call explain help' -l json -d 'As JSON'
complete -c stringhost -n '__fish_seen_subcommand_from call explain' -l host-version -x -d 'The version of the host'
complete -c stringhost -n '__fish_seen_subcommand_from call explain' -l encoding -x \
    -a 'utf-8 ascii utf-16 utf-32 macroman windows-1252 none' -d 'How string arguments are encoded and marked'
complete -c stringhost -n '__fish_seen_subcommand_from call explain' -l without -x -d 'A service the host shall not offer'
complete -c stringhost -n '__fish_seen_subcommand_from call' -l output -x -a 'text hex json raw' -d 'Form of the result'
complete -c stringhost -n '__fish_seen_subcommand_from call' -l repeat -x -d 'Call it so many times'
